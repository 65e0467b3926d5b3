#!/usr/bin/env python3
"""Writes the eclipse rows of the static store from the published tables.

    tools/eclipse_rows.py           rewrites resources/catalogue/Eclipse*.csv
    tools/eclipse_rows.py --check   fails when they are not what it would write

The published tables lie in data/eclipses/ and its README tells their columns.
Each row file has one column per attribute of its entity; Eclipse*.csv of one
kind refer to their Eclipse row by its name in the column `eclipse`.

What is not a plain copy:
  name, filename   SE or LE, the date and the type: SE2024Apr08T, LE2025Mar14T,
                   the names that NASA gives to the files of these eclipses
  i3, i4           umbral before penumbral magnitude; published the other way
  i20, i21         the Moon's declination as a line.  The published quadratic is
                   replaced by the line that departs least from it between P1
                   and P4, by the same amount at P1, P4 and half-way between
  i19              that greatest departure, degrees, with the sign it has at P1
"""
import csv
import io
import sys
from pathlib import Path

ROOT = Path(__file__).resolve().parent.parent
SOURCES = ROOT / "data" / "eclipses"
ROWS = ROOT / "resources" / "catalogue"
MONTHS = "Jan Feb Mar Apr May Jun Jul Aug Sep Oct Nov Dec".split()

SOLAR = 0
LUNAR = 1
TYPE_CODES = {
    SOLAR: {"total": 0, "hybrid": 1, "annular": 2, "partial": 3},
    LUNAR: {"total": 0, "partial": 1, "penumbral": 2},
}
TYPE_LETTERS = {"total": "T", "hybrid": "H", "annular": "A", "partial": "P", "penumbral": "N"}

# Attribute of the entity -> published column.
SOLAR_COLUMNS = {
    "t0": "t0", "dummy1": "tmin", "dummy2": "tmax", "deltaT": "dutc", "deltaT2": "dt",
    **{f"n{i}_x": f"x{i}" for i in range(4)},
    **{f"n{i}_y": f"y{i}" for i in range(4)},
    **{f"n{i}_d": f"d{i}" for i in range(3)},
    **{f"n{i}_u": f"m{i}" for i in range(3)},
    **{f"n{i}_l1": f"l1{i}" for i in range(3)},
    **{f"n{i}_l2": f"l2{i}" for i in range(3)},
    "tanf1": "tanf1", "tanf2": "tanf2", "duration": "central_duration",
}
LUNAR_COLUMNS = {
    "i1": "t0", "i2": "dt", "i3": "mag_umbral", "i4": "mag_penumbral", "i5": "kind",
    "i6": "gst0_h", "i7": "moon_hp_deg", "i8": "moon_sd_deg",
    **{contact: contact for contact in "p1 u1 u2 mid u3 u4 p4".split()},
    "i16": "ra0", "i17": "ra1", "i18": "ra2",
}


def eclipse_row(published, kind):
    year, month, day = published["date"].split("-")
    name = ("SE", "LE")[kind] + year + MONTHS[int(month) - 1] + day
    name += TYPE_LETTERS[published["type"]]
    return {"name": name, "filename": name, "eclipseType": kind,
            "type": TYPE_CODES[kind][published["type"]], "mjd": published["jd"]}


def declination_line(published):
    """Chebyshev's line: c t^2 over [a, b] is nearest (a + b) c t - e, with
    e = c ((a + b)^2 / 8 + a b / 2), and departs by c (b - a)^2 / 8."""
    d0, d1, c = (float(published[f"dec{i}"]) for i in range(3))
    a, b = float(published["p1"]), float(published["p4"])
    return {"i19": f"{c * (b - a) ** 2 / 8:.7f}",
            "i20": f"{d0 - c * ((a + b) ** 2 / 8 + a * b / 2):.7f}",
            "i21": f"{d1 + c * (a + b):.7f}"}


def row_files():
    solar = list(csv.DictReader(open(SOURCES / "solar_eclipses.csv", newline="")))
    lunar = list(csv.DictReader(open(SOURCES / "lunar_eclipses.csv", newline="")))
    eclipses = [eclipse_row(p, SOLAR) for p in solar] + [eclipse_row(p, LUNAR) for p in lunar]
    eclipses.sort(key=lambda row: float(row["mjd"]))
    yield "Eclipse.csv", eclipses
    yield "EclipseSolar.csv", [
        {"eclipse": eclipse_row(p, SOLAR)["name"],
         **{attribute: p[column] for attribute, column in SOLAR_COLUMNS.items()}} for p in solar]
    yield "EclipseLunar.csv", [
        {"eclipse": eclipse_row(p, LUNAR)["name"],
         **{attribute: p[column] for attribute, column in LUNAR_COLUMNS.items()},
         **declination_line(p)} for p in lunar]


def csv_text(rows):
    text = io.StringIO()
    writer = csv.DictWriter(text, rows[0].keys(), lineterminator="\n")
    writer.writeheader()
    writer.writerows(rows)
    return text.getvalue()


def main():
    stale = False
    for name, rows in row_files():
        path, text = ROWS / name, csv_text(rows)
        if sys.argv[1:] == ["--check"]:
            if not path.exists() or path.read_text() != text:
                print(f"{path.relative_to(ROOT)} differs: run tools/eclipse_rows.py")
                stale = True
        else:
            path.write_text(text)
    sys.exit(stale)


if __name__ == "__main__":
    main()
