#!/usr/bin/env python3
"""Writes the material database DB_materials out of facts.csv.

  make_materials.py [OUTPUT_DIRECTORY]

facts.csv holds one material a row: figures as published, contents in kg/m3, lists as "x:y;x:y".
How functions follow from the figures is told in docs/material-database.md; each file says what was done for it.
"""
import csv
import math
import pathlib
import sys

HERE = pathlib.Path(__file__).resolve().parent
DATABASE = HERE.parent.parent / "DB_materials"

R_VAPOR, RHO_WATER, T_REF = 461.89, 1000.0, 293.15
KELVIN = R_VAPOR * RHO_WATER * T_REF              # Pa
KV_AIR = 2.662e-5 / (R_VAPOR * 296.15)            # s
AIR_DENSITY, AIR_VISCOSITY = 1.205, 1.82e-5       # kg/m3, Pa s at 20 C
# Permeability of the benchmark package: M/(R T) D / mu.
KV_BENCHMARK = 0.018 / (8.314 * T_REF) * 26.1e-6
PC_GENERATED, PC_DRY = 11.5, 12.0
# Shape of the benchmark insulation, for materials without data of their own: weight, alpha in 1/Pa, m.
COARSE = [(1.0, 2e-4, 0.5)]
# Liquid conductivity of benchmark 1: ln K = polynomial in w - 73.
BM1_POLYNOMIAL = (-39.2619, 0.0704, -1.7420e-4, -2.7953e-6, -1.1566e-7, 2.5969e-9)

SOURCES = {
    "udk": "Generic moisture record of the open Modelica library BuildingSystems (UdK Berlin)",
    "energyplus": "EnergyPlus data set MoistureMaterials (NREL)",
    "hamstad": "HAMSTAD benchmark package (EU project, 2002), as published in open reproductions",
    "hamopy": "Standard materials of the open program hamopy (Rouchier)",
    "annex24": "IEA ECBCS Annex 24 (Kumaran 1996), table as reproduced by AIJ",
    "cte": "Spanish building code catalogue (classes of EN ISO 10456 and EN 12524), as in the open program condensaciones",
    "glaser": "Closed-form diffusion case with the formulas of ISO 13788",
    "iso10211": "ISO 10211, validation cases 1 and 4",
}
COLOURS = {
    "COATING": "#c8a2c8", "PLASTER": "#d9cfb4", "BRICK": "#b5533c", "NATURAL_STONES": "#8d8b86",
    "CONCRETE": "#a7a9ac", "INSULATION": "#f2d16b", "BUILDING_BOARDS": "#c9ad7f", "TIMBER": "#b98b53",
    "NATURAL_MATERIALS": "#9fae6a", "SOIL": "#7a5b3a", "CLADDING": "#a8634f", "FOILS": "#4b5a6a", "MISC": "#9aa7b5",
}


def number(value):
    """The fewest digits that read back to the same value, as the library writes them."""
    if value == 0:
        return "0"
    digits, exponent = f"{float(value):.17e}", 0
    for precision in range(17):
        digits = f"{float(value):.{precision}e}"
        if float(digits) == float(value):
            break
    mantissa, exponent = digits.split("e")
    exponent = int(exponent)
    fixed = f"{float(value):.{max(0, len(mantissa.replace('-', '').replace('.', '')) - 1 - exponent)}f}"
    scientific = f"{mantissa}e{'-' if exponent < 0 else '+'}{abs(exponent):02d}"
    return fixed if len(fixed) <= len(scientific) else scientific


def rounded(value, digits=6):
    return float(f"{value:.{digits}g}")


def pairs(text):
    return [tuple(float(v) for v in p.split(":")) for p in text.split(";")] if text else []


def interpolated(points, x):
    """Value at x; the last slope continues, the first value stays."""
    if x <= points[0][0]:
        return points[0][1]
    for (x0, y0), (x1, y1) in zip(points, points[1:]):
        if x <= x1 or (x1, y1) == points[-1]:
            return y0 + (y1 - y0) * (x - x0) / (x1 - x0)
    return points[-1][1]


def refined(function, x0, x1, tolerance):
    """Knots between which straight lines are within tolerance(y) of the function."""
    knots = [(x0, function(x0))]

    def add(a, ya, b, yb, depth):
        quarters = [(a + (b - a) * s, ya + (yb - ya) * s) for s in (0.25, 0.5, 0.75)]
        if depth and any(abs(function(x) - y) > tolerance(function(x)) for x, y in quarters):
            middle = (a + b) / 2
            add(a, ya, middle, function(middle), depth - 1)
            add(middle, function(middle), b, yb, depth - 1)
        else:
            knots.append((b, yb))

    steps = 16
    for i in range(steps):
        a, b = x0 + (x1 - x0) * i / steps, x0 + (x1 - x0) * (i + 1) / steps
        add(a, function(a), b, function(b), 16)
    return knots


class Material:
    def __init__(self, row):
        self.row = row
        self.comments = []
        self.flags = set()
        self.storage, self.transport = {}, {}
        self.functions = {}  # section -> [(name, x, y)]
        self.models = {}     # section -> [lines]

    def value(self, column):
        return float(self.row[column]) if self.row[column] else None

    def add(self, section, name, points, digits=7):
        kept = []
        for x, y in points:
            x, y = rounded(x, 9), rounded(y, digits)
            if not kept or x > kept[-1][0]:
                kept.append((x, y))
        self.functions.setdefault(section, []).append((name, [p[0] for p in kept], [p[1] for p in kept]))

    def build(self):
        row = self.row
        number_ = int(row["id"])
        self.storage["RHO"], self.storage["CE"] = self.value("rho"), self.value("cp")
        self.transport["LAMBDA"] = self.value("lambda")
        if row["source"] == "cte" and number_ < 300:
            self.transport["LAMBDA_DESIGN"] = self.value("lambda")
            self.comments.append("The thermal conductivity is a design value.")
        if 300 <= number_ < 400:
            self.flags |= {"AIR", "AIR_TIGHT", "WATER_TIGHT"}
            self.transport["MEW"] = 1.0
        elif not row["mu"]:
            self.flags |= {"AIR_TIGHT", "WATER_TIGHT", "VAPOR_TIGHT"}
        else:
            self.porous()
        if "FOILS" in row["category"]:
            self.flags.add("FOILS")
        if "TIMBER" in row["category"]:
            self.flags.add("WOOD")
        elif int(row["hatching"]) == 7 or row["file"].startswith("wood_"):
            self.flags.add("WOOD_BASED")
        if row["note"]:
            self.comments.insert(0, row["note"])

    def porous(self):
        row = self.row
        self.porosity = self.value("porosity")
        if self.porosity is None and row["solid"]:
            self.porosity = rounded(max(0.005, 1 - self.value("rho") / self.value("solid")), 3)
            self.comments.append(f"The porosity is estimated from the density and a solid density of {row['solid']} kg/m3.")
        elif self.porosity is None:
            self.porosity = 0.0002
            self.comments.append("The porosity of a plastic sheet (0.0002) is assumed.")
        self.retention()
        self.storage = {"RHO": self.storage["RHO"], "CE": self.storage["CE"], "THETA_POR": self.porosity,
                        "THETA_EFF": self.theta_eff}
        if row["w80"] and row["wf"]:
            self.storage["THETA_80"] = rounded(self.value("w80") / 1000)
        self.liquid()
        self.vapour()
        self.conductivity()
        if row["air"]:
            self.transport["KG"] = rounded(float(row["air"]) * AIR_DENSITY / AIR_VISCOSITY, 4)
            self.comments.append("The air permeability follows from the intrinsic one with air of 20 C.")
        else:
            self.flags.add("AIR_TIGHT")
        if int(row["id"]) == 127:
            self.wood_fibre()

    def retention(self):
        row = self.row
        saturated = self.value("wf")
        if row["sorption"]:
            points = pairs(row["sorption"])
            if points[-1][0] < 1:
                if saturated is None:
                    (x0, y0), (x1, y1) = points[-2:]
                    saturated = rounded(y1 + (y1 - y0) / (x1 - x0) * (1 - x1), 4)
                    self.comments.append("The content at saturation continues the last slope of the sorption curve.")
                points.append((1.0, saturated))
            self.theta_eff = rounded(points[-1][1] / 1000)
            self.add("MOISTURE_STORAGE", "Theta_l(RH)", [(0.0, 0.0)] + [(x, y / 1000) for x, y in points])
            self.comments.append("Moisture storage: published sorption points.")
            return
        if row["file"] == "benchmark_bm2":
            relative = lambda pc: (1 + pc / (0.118 * KELVIN)) ** -0.869
            self.comments.append("Moisture storage: w = 116 (1 - ln(phi)/0.118)^-0.869 kg/m3.")
        else:
            modes = [tuple(map(float, m.split(":"))) for m in row["retention"].split(";")] if row["retention"] else COARSE
            relative = lambda pc: sum(l * (1 + (a * pc) ** (1 / (1 - m))) ** -m for l, a, m in modes)
            if row["retention"]:
                self.comments.append("Moisture storage: van Genuchten, weight/alpha [1/Pa]/m "
                                     + ", ".join("/".join(number(v) for v in mode) for mode in modes) + ".")
            else:
                saturated = self.porosity * 1000
                self.comments.append("No moisture data: storage of a coarse-pored, non-hygroscopic material (shape of the "
                                     "HAMSTAD insulation) up to the porosity, no liquid transport.")
        self.theta_eff = rounded(saturated / 1000)
        self.relative = relative
        top = relative(1.0)
        function = lambda pC: self.theta_eff * relative(10 ** pC) / top
        fine = 2e-5 if row["retention"] or row["file"] == "benchmark_bm2" else 5e-4
        tolerance = lambda y: max(1e-8 * self.theta_eff, min(fine * self.theta_eff, 50 * fine * y))
        points = refined(function, 0.0, PC_GENERATED, tolerance)
        points[0] = (0.0, self.theta_eff)
        self.add("MOISTURE_STORAGE", "Theta_l(pC)_de", points + [(PC_DRY, 0.0)])

    def liquid(self):
        row = self.row
        saturated = self.theta_eff * 1000
        if row["file"] == "benchmark_bm1_load_bearing":
            self.benchmark_liquid(saturated)
            return
        uptake = self.value("aw") or None
        if row["diffusivity"]:
            points = pairs(row["diffusivity"])
            last = points[-1][1]
            if points[0][0] > 0:
                points.insert(0, (0.0, min(points[0][1], last / 1000)))
                self.comments.append("Liquid transport: published diffusivities, a thousandth of the last one when dry.")
            else:
                self.comments.append("Liquid transport: published diffusivity.")
            if points[-1][0] < saturated:
                points.append((saturated, last))
            if uptake is None:
                uptake = (2 / math.sqrt(math.pi) * saturated * math.sqrt(last) if points[0][1] == last
                          else saturated * math.sqrt(last / 3.8))
                self.comments.append("The water uptake coefficient follows from the diffusivity.")
        elif uptake:
            last = 3.8 * (uptake / saturated) ** 2
            points = [(0.0, last / 1000), (saturated, last)]
            self.comments.append("Liquid transport: diffusivity 3.8 (A/wf)^2 1000^(w/wf - 1) after Künzel 1995.")
        else:
            self.flags.add("WATER_TIGHT")
            if row["wf"] or row["sorption"]:
                self.comments.append("No data of liquid transport: none is calculated.")
            return
        self.transport["AW"] = rounded(uptake, 4)
        self.transport["DLEFF"] = rounded(last)
        self.add("MOISTURE_TRANSPORT", "lgDl(Theta_l)", [(w / 1000, math.log10(d)) for w, d in points])

    def benchmark_liquid(self, saturated):
        def lg(content):
            z = content * 1000 - 73
            return sum(c * z ** i for i, c in enumerate(BM1_POLYNOMIAL)) / math.log(10)

        # Uptake after Parlange: A^2 is the integral of (ws + w) K over capillary pressure, from dry to saturated.
        square, steps = 0.0, 20000
        for i in range(steps):
            pc0, pc1 = 10 ** (12 * i / steps), 10 ** (12 * (i + 1) / steps)
            content = self.theta_eff * self.relative(math.sqrt(pc0 * pc1))
            square += (saturated + content * 1000) * 10 ** lg(content) * (pc1 - pc0)
        self.transport["AW"] = rounded(math.sqrt(square), 4)
        self.transport["KLEFF"] = rounded(10 ** lg(self.theta_eff), 8)
        self.add("MOISTURE_TRANSPORT", "lgKl(Theta_l)", refined(lg, 0.0, self.theta_eff, lambda y: 1e-4), 9)
        self.comments.append("Liquid transport: ln K = -39.2619 + 0.0704 z - 1.742e-4 z^2 - 2.7953e-6 z^3 - 1.1566e-7 z^4 + "
                             "2.5969e-9 z^5, z = w - 73 kg/m3. The water uptake coefficient follows from it after Parlange.")

    def vapour(self):
        row = self.row
        factor = self.value("mu")
        if row["parallel_share"]:
            factor = rounded(KV_AIR / (KV_BENCHMARK / factor))
            self.models.setdefault("MOISTURE_TRANSPORT", []).append(
                ["TYPE = SERIAL_PARALLEL", f"{'SP_SP':<25}= {number(float(row['parallel_share']))}"])
            self.comments.append(f"Vapour transport: mu {row['mu']} and s/((1-p)s^2+p), p = {row['parallel_share']}; the "
                                 "factor is written for our permeability of air.")
        elif row["mu_points"]:
            points = pairs(row["mu_points"])
            if points[0][0] > 0:
                points.insert(0, (0.0, points[0][1]))
            if points[-1][0] < 1:
                points.append((1.0, points[-1][1]))
            self.add("MOISTURE_TRANSPORT", "mew(RH)", points)
            if len(pairs(row["mu_points"])) == 2:
                self.comments.append("Vapour transport: dry factor up to 25 %, wet factor from 75 % relative humidity.")
        self.transport["MEW"] = factor

    def conductivity(self):
        points = pairs(self.row["lambda_points"])
        if not points:
            return
        # From the published table to the content at saturation.
        end = self.theta_eff * 1000
        inside = [p for p in points if p[0] < end] + [(end, interpolated(points, end))]
        self.add("HEAT_TRANSPORT", "lambda(Theta_l)", [(w / 1000, y) for w, y in inside])

    def wood_fibre(self):
        """Published for this material: cp = 1103.1 + 11.271 T, lambda = 0.038 + 0.192 w/1000 + 0.108e-3 T (T in C)."""
        self.storage["CE"] = 1103.1
        energy = lambda celsius: 1103.1 * celsius + 11.271 / 2 * celsius ** 2
        self.add("THERMAL_STORAGE", "u(T)", [(273.15 + c, energy(c)) for c in range(-40, 81, 5)], 9)
        self.add("HEAT_TRANSPORT", "lambda(Theta_l)", [(0.0, 0.038), (self.theta_eff, 0.038 + 0.192 * self.theta_eff)])
        self.add("HEAT_TRANSPORT", "lambda(T)", [(273.15 + c, 0.038 + 0.108e-3 * c) for c in (-40, 80)])

    def text(self):
        row = self.row
        lines = ["H6MARLZ! 006.001", "", "[IDENTIFICATION]"]
        category = row["category"].split(",")[0]
        order = "AIR AIR_TIGHT VAPOR_TIGHT WATER_TIGHT WOOD WOOD_BASED FOILS".split()
        identification = {
            "NAME": f"en:{row['name_en']}|de:{row['name_de']}",
            "FLAGS": " ".join(f for f in order if f in self.flags),
            "CATEGORY": row["category"],
            "COLOUR": COLOURS[category],
            "HATCHING": row["hatching"],
            "COMMENTS": "en:" + " ".join(self.comments) if self.comments else "",
            "DBTYPE": "EDITION_BENCHMARK" if row["file"].startswith("benchmark") else "STANDARD",
            "DATA_SHEET_SOURCE": SOURCES[row["source"]],
        }
        lines += [f"  {k:<24} = {v}" for k, v in identification.items() if v]
        units = {"RHO": "kg/m3", "CE": "J/kgK", "LAMBDA": "W/mK", "LAMBDA_DESIGN": "W/mK", "AW": "kg/m2s05", "MEW": "-",
                 "KLEFF": "s", "DLEFF": "m2/s", "KG": "s"}
        keys = {"STORAGE": "RHO CE THETA_POR THETA_EFF THETA_80".split(),
                "TRANSPORT": "LAMBDA AW MEW KLEFF DLEFF KG LAMBDA_DESIGN".split()}
        for name, values in (("STORAGE", self.storage), ("TRANSPORT", self.transport)):
            lines += ["", f"[{name}_BASE_PARAMETERS]"]
            lines += [f"  {k:<24}= {number(values[k])} {units.get(k, 'm3/m3')}" for k in keys[name] if k in values]
        for section in ("THERMAL_STORAGE", "MOISTURE_STORAGE", "MOISTURE_TRANSPORT", "HEAT_TRANSPORT"):
            if section not in self.functions and section not in self.models:
                continue
            lines += ["", f"[{section}]"]
            for name, x, y in self.functions.get(section, []):
                lines += [f"  FUNCTION = {name}", "      " + " ".join(map(number, x)), "      " + " ".join(map(number, y))]
            for model in self.models.get(section, []):
                lines += ["  [MODEL]"] + ["  " + line for line in model]
        return "\n".join(lines) + "\n"


def main():
    target = pathlib.Path(sys.argv[1]) if len(sys.argv) > 1 else DATABASE
    target.mkdir(parents=True, exist_ok=True)
    for old in DATABASE.glob("*.m6") if target == DATABASE else []:
        old.unlink()
    with open(HERE / "facts.csv", newline="", encoding="utf-8") as facts:
        rows = list(csv.DictReader(facts))
    for row in rows:
        material = Material(row)
        material.build()
        (target / f"{row['file']}_{row['id']}.m6").write_text(material.text(), encoding="utf-8", newline="\n")
    print(f"{len(rows)} materials written to {target}")


if __name__ == "__main__":
    main()
