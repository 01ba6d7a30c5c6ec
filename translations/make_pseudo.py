"""Makes a catalogue in a language that nobody speaks, from the texts in the code.

Every text is the English one, drawn out by two fifths, with accents, between brackets. What stands
on screen without them was never given to the catalogues; what is cut there has too little room. In a
language of the right-to-left ones every text begins with a mark that says so.

Arguments: the catalogue to read, the language, how many plural forms it has, the catalogue to write.
"""

import re
import sys
import xml.etree.ElementTree as ElementTree

_ACCENTED = str.maketrans("aeiouyAEIOUYcnsCNS", "áéíóúýÁÉÍÓÚÝçñšÇÑŠ")
_PLACEHOLDER = re.compile(r"(%[0-9n])")


def drawn_out(text: str) -> str:
    """The text with its vowels doubled from the front until it has grown by two fifths."""
    wanted, grown = (len(text) * 7 + 4) // 5, []
    missing = wanted - len(text)
    for part in _PLACEHOLDER.split(text):
        if _PLACEHOLDER.fullmatch(part):
            grown.append(part)
            continue
        for letter in part:
            doubled = missing > 0 and letter in "aeiouyAEIOUY"
            missing -= doubled
            grown.append((letter * 2 if doubled else letter).translate(_ACCENTED))
    return "[" + "".join(grown) + "ǁ" * max(missing, 0) + "]"


def _main() -> None:
    template, language, forms, result = sys.argv[1], sys.argv[2], int(sys.argv[3]), sys.argv[4]
    mark = "\u200f" if language.startswith("ar") else ""
    tree = ElementTree.parse(template)
    tree.getroot().set("language", language)
    for message in tree.getroot().iter("message"):
        words = mark + drawn_out(message.findtext("source", ""))
        translation = message.find("translation")
        translation.attrib.pop("type", None)
        if message.get("numerus") == "yes":
            for form in list(translation):
                translation.remove(form)
            for _ in range(forms):
                ElementTree.SubElement(translation, "numerusform").text = words
        else:
            translation.text = words
    tree.write(result, encoding="utf-8", xml_declaration=True)


if __name__ == "__main__":
    _main()
