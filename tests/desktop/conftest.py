"""What every desktop test shares: a desktop to use, and evidence kept when a test fails."""

import os
import re
import shutil
import sys
from collections.abc import Iterator
from pathlib import Path

import pytest

sys.path.insert(0, str(Path(__file__).parent))

from harness import Desktop, program_path  # noqa: E402

EVIDENCE = Path(__file__).resolve().parents[2] / "build" / "desktop-failures"


def pytest_addoption(parser: pytest.Parser) -> None:
    parser.addoption("--program", help="the velmora to test; the newest built one by default")


def pytest_configure(config: pytest.Config) -> None:
    if program := config.getoption("--program"):
        os.environ["VELMORA_PROGRAM"] = str(Path(program).resolve())


def pytest_report_header() -> str:
    return f"velmora: {program_path() or 'not built'}; evidence of failures: {EVIDENCE}"


@pytest.hookimpl(tryfirst=True)
def pytest_runtest_setup(item: pytest.Item) -> None:
    Desktop.evidence = EVIDENCE / re.sub(r"[^\w.-]+", "-", item.nodeid).strip("-")
    shutil.rmtree(Desktop.evidence, ignore_errors=True)


@pytest.hookimpl(hookwrapper=True)
def pytest_runtest_makereport(item: pytest.Item, call: pytest.CallInfo) -> Iterator[None]:
    report = (yield).get_result()
    if call.when == "teardown" or not report.failed:
        return
    # Desktops that the test itself opened have kept their evidence on the way out.
    for desktop in Desktop.living:
        try:
            desktop.keep_evidence(Desktop.evidence)
        except Exception as trouble:  # the test's own failure is the one to report
            report.sections.append(("evidence", f"incomplete: {trouble!r}"))
    if Desktop.evidence.exists():
        report.sections.append(("evidence", f"screenshot and logs: {Desktop.evidence}"))


@pytest.fixture(params=[1, 2], ids=["scale1", "scale2"])
def desktop(request: pytest.FixtureRequest) -> Iterator[Desktop]:
    """An ordinary desktop, once at scale 1 and once at scale 2."""
    with Desktop(scale=request.param) as brought_up:
        yield brought_up
