"""A browser without a window, which loads a page, is asked what it shows, and prints it."""
import base64
import json
import re

from selenium import webdriver
from selenium.webdriver.chrome.options import Options
from selenium.webdriver.chrome.service import Service

# Whatever a page asks of a network is refused by a proxy that is not there; none of it is needed.
ARGUMENTS = ["--headless=new", "--no-sandbox", "--disable-gpu", "--disable-dev-shm-usage", "--hide-scrollbars",
             "--proxy-server=127.0.0.1:9", "--proxy-bypass-list=<-loopback>"]


class Browser:
    def __init__(self, folder):
        options = Options()
        for argument in [*ARGUMENTS, f"--user-data-dir={folder}"]:
            options.add_argument(argument)
        options.set_capability("goog:loggingPrefs", {"browser": "ALL", "performance": "ALL"})
        self.driver = webdriver.Chrome(service=Service("/usr/bin/chromedriver"), options=options)
        self.find = self.driver.find_elements
        self.run = self.driver.execute_script

    def close(self):
        self.driver.quit()

    def open(self, path, width=1200, has_scripts=True, medium=""):
        """A medium is "print" or, for a screen, nothing; a width counts pixels, of which an inch of paper has 96."""
        self.driver.execute_cdp_cmd("Emulation.setScriptExecutionDisabled", {"value": not has_scripts})
        self.driver.execute_cdp_cmd("Emulation.setDeviceMetricsOverride",
                                    {"width": width, "height": 1400, "deviceScaleFactor": 1, "mobile": False})
        self.driver.execute_cdp_cmd("Emulation.setEmulatedMedia", {"media": medium})
        self.driver.get("file://" + path)

    def complaints(self):
        return [entry["message"] for entry in self.driver.get_log("browser")]

    def requests(self):
        """Every address that pages in files asked for since the last call, their own among them."""
        messages = [json.loads(entry["message"])["message"] for entry in self.driver.get_log("performance")]
        sent = [message["params"] for message in messages if message["method"] == "Network.requestWillBeSent"]
        return [request["request"]["url"] for request in sent if request["documentURL"].startswith("file:")]

    def print(self):
        """The page as a PDF file: its bytes, and of each sheet the width and height in points."""
        answer = self.driver.execute_cdp_cmd("Page.printToPDF", {"preferCSSPageSize": True, "printBackground": False})
        content = base64.b64decode(answer["data"])
        boxes = re.findall(rb"/MediaBox\s*\[\s*0\s+0\s+([\d.]+)\s+([\d.]+)\s*\]", content)
        return content, [(float(width), float(height)) for width, height in boxes]
