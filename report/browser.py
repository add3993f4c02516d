"""A Chromium without windows that shows a page from a file, as Debian's packages bring it."""

import os
import shutil
import tempfile
from contextlib import contextmanager

from selenium import webdriver
from selenium.webdriver.chrome.options import Options
from selenium.webdriver.chrome.service import Service
from selenium.webdriver.support.ui import WebDriverWait

WIDTH = 1320
# Nothing that the browser does for itself may look like something that the page does.
QUIET = ("--headless", "--disable-gpu", "--disable-quic", "--no-first-run",
         "--disable-background-networking", "--disable-component-update", "--disable-sync",
         "--hide-scrollbars", "--force-device-scale-factor=1")


@contextmanager
def browser():
    options = Options()
    profile = tempfile.mkdtemp(prefix="report-browser-")
    for argument in (*QUIET, f"--window-size={WIDTH},1000", f"--user-data-dir={profile}"):
        options.add_argument(argument)
    if os.geteuid() == 0:
        # Chromium's sandbox refuses root.
        options.add_argument("--no-sandbox")
    options.set_capability("goog:loggingPrefs", {"browser": "ALL", "performance": "ALL"})
    driver = webdriver.Chrome(service=Service("/usr/bin/chromedriver"), options=options)
    try:
        yield driver
    finally:
        driver.quit()
        shutil.rmtree(profile, ignore_errors=True)


def open_page(driver, path):
    driver.get(path.resolve().as_uri())
    WebDriverWait(driver, 30).until(
        lambda d: d.execute_script("return document.readyState") == "complete")
