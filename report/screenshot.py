#!/usr/bin/python3
"""Takes a picture of a whole page, or of one part of it."""

import argparse
import base64
from pathlib import Path

from browser import WIDTH, browser, open_page


def main():
    parser = argparse.ArgumentParser(description=__doc__)
    parser.add_argument("page", type=Path)
    parser.add_argument("picture", type=Path, help="PNG file to write")
    parser.add_argument("--part", default="html", help="selector of the part, such as #overview")
    arguments = parser.parse_args()
    with browser() as driver:
        open_page(driver, arguments.page)
        top, height = driver.execute_script(
            "const part = document.querySelector(arguments[0]).getBoundingClientRect();"
            "return [part.top, part.height]", arguments.part)
        picture = driver.execute_cdp_cmd("Page.captureScreenshot", {
            "captureBeyondViewport": True,
            "clip": {"x": 0, "y": top, "width": WIDTH, "height": height, "scale": 1}})
    arguments.picture.parent.mkdir(parents=True, exist_ok=True)
    arguments.picture.write_bytes(base64.b64decode(picture["data"]))


if __name__ == "__main__":
    main()
