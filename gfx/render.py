#!/usr/bin/env python3
"""Renders icons.svg into the pictures beside it, which are committed: nobody needs these tools to build.

Usage: render.py [--sheet FILE.png]

Needs rsvg-convert (librsvg2-bin), and ImageMagick 6 for the GIF and the sheet. With --sheet nothing is rendered anew;
all pictures are laid out on a light and on a dark window, in their own size and enlarged, to be looked at.
"""

import argparse
import pathlib
import subprocess
import tempfile
import xml.etree.ElementTree as tree

FOLDER = pathlib.Path(__file__).resolve().parent
SVG = "http://www.w3.org/2000/svg"
# By its full name: a plain "convert" may be anything.
CONVERT = "convert-im6.q16"


def symbols(source):
    """The symbols that are pictures, with file name and size in pixels."""
    for symbol in source.iter(f"{{{SVG}}}symbol"):
        if "data-file" in symbol.attrib:
            width, height = symbol.get("data-size").split("x")
            yield symbol, symbol.get("data-file"), int(width), int(height)


def picture(source, symbol, width, height):
    """The PNG of one symbol, drawn by a document that has all of them as its pieces."""
    document = tree.Element(f"{{{SVG}}}svg", width=str(width), height=str(height))
    document.extend(source)
    tree.SubElement(document, f"{{{SVG}}}use", href=f"#{symbol.get('id')}", width=str(width), height=str(height))
    return subprocess.run(["rsvg-convert", "--format=png"], input=tree.tostring(document), stdout=subprocess.PIPE,
                          check=True).stdout


def render(source):
    for symbol, name, width, height in symbols(source):
        png = picture(source, symbol, width, height)
        if name.endswith(".gif"):
            # A GIF has no half-transparent pixels: the edge is cut where it is half covered.
            command = [CONVERT, "png:-", "-channel", "A", "-threshold", "50%", "+channel", str(FOLDER / name)]
        else:
            # Stripped of its dates, so that the same drawing gives the same file.
            command = [CONVERT, "png:-", "-strip", "-define", "png:exclude-chunks=date,time",
                       f"PNG32:{FOLDER / name}"]
        subprocess.run(command, input=png, check=True)


def sheet(source, target):
    """Rows of all pictures, light before dark, each once in its own size and once enlarged."""
    files = [str(FOLDER / name) for _, name, _, _ in symbols(source)]
    rows = []
    for background in ("#efefef", "#353535"):
        for enlarge in ([], ["-filter", "point", "-resize", "400%", "-resize", "128x128>"]):
            row = subprocess.run(["montage-im6.q16", *files, *enlarge, "-background", background, "-tile", "13x",
                                  "-geometry", "+8+8", "png:-"], stdout=subprocess.PIPE, check=True).stdout
            rows.append(row)
    with tempfile.TemporaryDirectory() as folder:
        parts = [pathlib.Path(folder, f"{number}.png") for number in range(len(rows))]
        for part, row in zip(parts, rows):
            part.write_bytes(row)
        subprocess.run([CONVERT, *map(str, parts), "-append", target], check=True)


def main():
    parser = argparse.ArgumentParser(description=__doc__, formatter_class=argparse.RawDescriptionHelpFormatter)
    parser.add_argument("--sheet", metavar="FILE.png")
    arguments = parser.parse_args()
    tree.register_namespace("", SVG)
    source = tree.parse(FOLDER / "icons.svg").getroot()
    if arguments.sheet:
        sheet(source, arguments.sheet)
    else:
        render(source)


if __name__ == "__main__":
    main()
