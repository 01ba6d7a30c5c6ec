"""The program's stored settings, as a person would write and read them."""

import tomllib
from pathlib import Path


class Settings:
    """The file `com.local.velmora/defaults.toml` in one user's configuration folder."""

    def __init__(self, configuration: Path):
        self.path = configuration / "com.local.velmora" / "defaults.toml"

    def write(self, **values: bool | int | float | str) -> None:
        """Replaces the file by one with exactly these values."""
        self.write_text("".join(f"{key} = {_literal(value)}\n" for key, value in values.items()))

    def write_text(self, text: str) -> None:
        """Replaces the file by this text, right or wrong."""
        self.path.parent.mkdir(parents=True, exist_ok=True)
        self.path.write_text(text)

    def read(self) -> dict:
        """What the file holds; nothing when there is no file."""
        try:
            return tomllib.loads(self.path.read_text())
        except FileNotFoundError:
            return {}


def _literal(value: bool | int | float | str) -> str:
    if isinstance(value, bool):
        return str(value).lower()
    if isinstance(value, str):
        return '"' + value.replace("\\", "\\\\").replace('"', '\\"') + '"'
    return repr(value)
