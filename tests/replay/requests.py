#!/usr/bin/env python3
"""Prints a thousand requests for `quillbox-replay batch`, over all operations and functions: always the same
ones. Two builds of the program, for two systems, answer them alike to the byte."""
import json
import random

draw = random.Random(7)
REGIONS = ("en-US", "en-GB", "de-DE", "fr-FR", "de-CH", "sv-SE", "pt-BR",
           {"decimal": "'", "group": "", "currencySymbol": "€", "positiveCurrency": "n $", "currencyDecimals": 3})
TEXTS = ("", "abc", "Größe €5", "a|||b", "%41 =;\\x/y", "C:\\sounds\\ding.wav", "\u0081\u009d", "1.2.3", "x\r\ny", "0,26,53")
NUMBERS = ("0", "1", "(1,234.5)", "1.234,5", "$1.23", "-1.005", "12 345,67", "1e5", "$ 3", "99999999999", "2.5", "½", "")
DATES = ("1/31/2007", "31.01.2007", "2007-01-31", "Feb 3", "31 janv. 2007", "2/30/2007", "1/2/07", "")
FUNCTIONS = {  # and what they take
    "LeadingNumber": NUMBERS, "ToDouble": NUMBERS, "ToLong": NUMBERS, "ToCurrency": NUMBERS, "ToDecimal": NUMBERS,
    "ToDate": DATES, "NumberText": (0, 1.5, -1234567.875, 1e-7, {"currency": "12300"}), "SkinColor": TEXTS,
    "CurrencyText": (1.26, -1.005, "1234.5", 1e9), "GroupedText": (1234567, "1234", 0.5), "CtrText": (0, 0.0123, 100),
    "EcpmText": (0, 2.675, 1e6), "ShortDate": ("2007-01-31", "1999-12-01"), "TimeText": ("09:05:00", "23:59:59"),
    "FixPercentCell": NUMBERS, "FixMoneyCell": NUMBERS, "NormalizeReportCell": NUMBERS, "KeepNumberChars": NUMBERS,
    "PeriodCharacter": ("",), "CommaCharacter": ("",), "RateMinutes": ("Every minute", "Every 5 hours", "?"),
    "ScrambleText": TEXTS, "UnscrambleText": TEXTS, "EncodeFormValue": TEXTS, "FileNameOf": TEXTS}
TITLES = ("Ad Performance - Clicks", "Referrals - CTR", "Ad Performance - Earnings", "Nothing")


def report():
    rows = [f"1/{day}/2007\t{draw.randrange(9000)}\t{draw.randrange(90)}\t{draw.random() * 9:.2f}%"
            f"\t{draw.random() * 9:.2f}\t{draw.random() * 99:.2f}" for day in range(1, draw.randrange(2, 32))]
    return "\n".join(["Date\tPage impressions\tClicks\tCTR\teCPM\tEarnings", *rows,
                      "Totals\t5000\t50\t1.00%\t2.00\t10.00", "Averages\t1\t1\t1\t1\t1", ""])


def record():
    return "|||".join(["9:05 AM", draw.choice(DATES), *(draw.choice(NUMBERS) for _ in range(11))])


def settings():
    return {"AdSense": {"Accounts": "One|||Zwö", "Usernames": "a@x.test|||b@x.test", "Passwords": "bdf|||2",
                        "PrimaryAccount": draw.choice(("One", "Zwö", ""))},
            "Accounts": {"One": record(), "Zwö": record(), "One Impressions": "100|200"},
            "TrayIcon": {"ShowBalloonWhen": draw.choice(("Never", "Any Stats Change", "Clicks Changes"))},
            "TrayTooltip": {"DataToDownload": draw.choice(("All", "AdSense for Search", "")),
                            "Values": draw.choice(("ABCDEFGHIJKLM", "ADF", "")),
                            "DisplayAllStats": draw.choice(("True", "False"))}}


def account():
    return {"username": draw.choice(("a@x.test", "ö%&=+")), "password": draw.choice(TEXTS), "host": "service.test"}


def evaluation():
    return {"region": draw.choice(REGIONS), "now": f"2007-01-{draw.randrange(1, 31):02}T{draw.randrange(24):02}:05:00",
            "account": draw.choice(("One", "Zwö")), "accounts": ["One", "Zwö"], "settings": settings()}


def files():
    return {name: draw.choice((report(), None, "", "x")) for name in ("content", "search", "referral")}


def steps():
    return [draw.choice((["read", "General", draw.choice(("a", "B", "é"))], ["delete", "general", "A"],
                         ["write", draw.choice(("General", "New")), "b", draw.choice(TEXTS[:5])])) for _ in range(6)]


OPERATIONS = {
    "accountList": lambda: {"settings": settings()},
    "profile": lambda: {"text": draw.choice(("", "[General]\r\nA=1\r\nÉ= x \r\n", "; note\n[x]\n")), "steps": steps()},
    "evaluate": lambda: {**evaluation(), "soundFiles": [*TEXTS[1:6], "(None)"], "files": files()},
    "statsText": evaluation, "accountMenus": evaluation,
    "refreshCommands": lambda: {"settings": settings(), "folder": "/d", **account()},
    "refreshOutcome": lambda: {"contentCode": draw.choice(("0", "1", "7", "")), "otherCode": draw.choice(("0", "4")),
                               "username": "a", "domain": "x.test"},
    "signInAddress": account,
    "reportCommand": lambda: {"title": draw.choice(TITLES), "range": draw.choice(("Today", "This Month", "All Time")),
                              "unit": draw.choice(("Page", "Ad Unit", "Individual Ad")), "folder": "/d", **account()},
    "reportData": lambda: {"region": draw.choice(REGIONS), "title": draw.choice(TITLES), "text": report(),
                           "now": "2007-02-01T00:00:00"},
    "reportPage": lambda: {"title": draw.choice(TITLES), "labels": "a|b<BR>ü", "values": "1|2,5",
                           "channels": draw.choice(("", "x|y")), "period": ".", "comma": ","},
    "tooltipLayout": lambda: {"text": "Date: 1/31/2007\r\nClicks: 15\r\n\r\nnothing",
                              "measure": {"description": draw.randrange(300), "value": draw.random() * 99, "height": 210}},
    "tooltipPlacement": lambda: {
        "taskbar": draw.choice(((0, 738, 1024, 768), (0, 0, 60, 768), (964, 0, 1024, 768), (0, 0, 0, 0))),
        "screen": (1024, 768), "window": (draw.randrange(400), draw.random() * 300)},
    "versionCheck": lambda: {"installed": "1.3.0", "file": draw.choice((None, "1.4.0", "Quillbox|1.4|x", "1.3.0")),
                             "asked": draw.choice(("Yes", "No")), "announced": draw.choice(("", "1.4.0"))},
}


def conversion(i):
    function = list(FUNCTIONS)[i % len(FUNCTIONS)]
    return {"op": "convert", "function": function, "argument": draw.choice(FUNCTIONS[function]),
            "region": draw.choice(REGIONS), "now": "2009-05-01T00:00:00", "use24Hour": draw.random() < 0.5, "decimals": 2}


for i in range(1000):
    name = list(OPERATIONS)[i // 2 % len(OPERATIONS)]
    request = conversion(i // 2) if i % 2 else {"op": name, **OPERATIONS[name]()}
    print(json.dumps({**request, "id": i}, ensure_ascii=i % 3 == 0))
