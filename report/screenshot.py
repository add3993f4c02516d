#!/usr/bin/python3
"""Takes a picture of a whole page, from its top to its end."""

import argparse
import base64
from pathlib import Path

from browser import WIDTH, browser, open_page


def main():
    parser = argparse.ArgumentParser(description=__doc__)
    parser.add_argument("page", type=Path)
    parser.add_argument("picture", type=Path, help="PNG file to write")
    arguments = parser.parse_args()
    with browser() as driver:
        open_page(driver, arguments.page)
        height = driver.execute_script("return document.documentElement.scrollHeight")
        picture = driver.execute_cdp_cmd("Page.captureScreenshot", {
            "captureBeyondViewport": True,
            "clip": {"x": 0, "y": 0, "width": WIDTH, "height": height, "scale": 1}})
    arguments.picture.parent.mkdir(parents=True, exist_ok=True)
    arguments.picture.write_bytes(base64.b64decode(picture["data"]))


if __name__ == "__main__":
    main()
