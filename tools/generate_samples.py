#!/usr/bin/env python3
"""Makes the sample forms: three templates, three filled forms, instrument files, lists and their pictures.

    python3 tools/generate_samples.py                                 templates, tables and pictures
    python3 tools/generate_samples.py --cli build/dev/bin/sheetwright-cli      the filled forms as well
    python3 tools/generate_samples.py --cli ... --packed FOLDER       and the templates as archives with their pictures

Written below share/ (or below --out):

    templates/NAME.aft               plain text, so that a change can be read in a diff; pictures lie beside
    samples/NAME.aff                 archive: the form's text, its pictures, its lists, the imported file
    samples/NAME.csv, NAME.inf       the instrument's file and its column types
    drivers/DRIVER/DRIVER.INF        the marker by which an import finds the driver's name
    drivers/DRIVER/Data/NAME.csv     the same file where an import expects it
    lists/LIST.csv, LIST.inf         the maintainable lists

Standard library only. A second run changes no byte: nothing depends on the clock or on chance, and archives bear fixed
times. With --cli the program itself derives every calculated value; the run fails unless a further recalculation leaves
the form as it is and the program's own check of templates and forms finds nothing.
"""

import argparse
import os
import pathlib
import subprocess
import tempfile

from samples import appliance_record, calibration_certificate, inspection_report, pictures
from samples.archives import csv_bytes, read_member, type_bytes, write_archive
from samples.appliance_data import ROWS
from samples.calibration_data import READINGS
from samples.design import form_text
from samples.inspection_data import CIRCUITS

SHARE = pathlib.Path(__file__).resolve().parent.parent / "share"
# Dates are written day first and numbers with a point, whatever the machine's own conventions are.
CONVENTIONS = "C.UTF-8"


class Form:
    """One sample form: its module, its instrument's rows, and what travels with it."""

    def __init__(self, module, rows, template_pictures, form_pictures):
        self.module, self.name = module, module.NAME
        self.csv = csv_bytes(module.CSV_HEADER, rows)
        self.inf = type_bytes(module.CSV_TYPES)
        self.template_pictures, self.form_pictures = template_pictures, form_pictures

    def template_text(self):
        return form_text(self.module.pages()).encode()

    def filled_text(self):
        return form_text(self.module.pages(), self.module.data()).encode()

    def list_files(self):
        """Name and bytes of the form's list, if it has one."""
        if not hasattr(self.module, "LIST"):
            return {}
        module = self.module
        types = {f"{module.LIST}.inf": type_bytes(module.LIST_TYPES)} if module.LIST_TYPES else {}
        return {f"{module.LIST}.csv": csv_bytes(module.LIST_HEADER, module.LIST_ROWS), **types}

    def companions(self):
        """What a template's archive holds besides its text."""
        files = {**self.template_pictures, **self.list_files()}
        if self.list_files():
            files["ListIndex.txt"] = f"{self.module.LIST},{self.module.LIST}\r\n".encode()
        if hasattr(self.module, "LINKED_PAGES"):
            files["linkedpages.txt"] = self.module.LINKED_PAGES
        return files


def sample_forms():
    return (
        Form(appliance_record, ROWS, {"harrowmere_emblem.png": pictures.electrical_emblem().png()},
             {"signature_penhallick.png": pictures.signature(1).png()}),
        Form(inspection_report, CIRCUITS, {"companylogo.bmp": pictures.inspection_logo().bmp()},
             {"distribution_board.png": pictures.distribution_board().png(),
              "signature_castell.png": pictures.signature(2).png()}),
        Form(calibration_certificate, READINGS, {"certificate_paper.png": pictures.certificate_paper().png()},
             {"process_meter.png": pictures.process_meter().png(), "signature_brannock.png": pictures.signature(3).png(),
              "signature_aske.png": pictures.signature(4).png()}),
    )


def write(path, data):
    path.parent.mkdir(parents=True, exist_ok=True)
    path.write_bytes(data)


def write_plain_files(form, out):
    write(out / "templates" / f"{form.name}.aft", form.template_text())
    for name, data in form.template_pictures.items():
        write(out / "templates" / name, data)
    for name, data in form.list_files().items():
        write(out / "lists" / name, data)
    driver = out / "drivers" / form.module.DRIVER
    write(driver / "DRIVER.INF", f"[Driver]\r\nName={form.module.DRIVER}\r\nMaker=Orvane Instruments\r\n".encode())
    for folder in (driver / "Data", out / "samples"):
        write(folder / f"{form.name}.csv", form.csv)
        write(folder / f"{form.name}.inf", form.inf)


class Program:
    """The command line program, without any user's settings, its current directory that of the lists."""

    def __init__(self, path, lists_parent, home):
        self.path, self.lists_parent = path, lists_parent
        self.environment = {**os.environ, "LC_ALL": CONVENTIONS, "XDG_CONFIG_HOME": home, "XDG_DATA_HOME": home}

    def run(self, *arguments):
        done = subprocess.run([self.path, *map(str, arguments)], cwd=self.lists_parent, env=self.environment,
                              capture_output=True, text=True, encoding="utf-8", check=False)
        if done.returncode != 0 or done.stderr:
            raise SystemExit(f"{' '.join(map(str, arguments))}: {done.stdout}{done.stderr}")

    def recalculated(self, members, name):
        """The form's text after one recalculation."""
        with tempfile.TemporaryDirectory() as folder:
            before, after = pathlib.Path(folder, "in", name), pathlib.Path(folder, "out", name)
            before.parent.mkdir()
            after.parent.mkdir()
            write_archive(before, members)
            self.run("fill", before, "--save", after)
            return read_member(after, name)


def write_filled_form(form, program, out):
    """One recalculation must be enough: people save once, and what is saved must be right."""
    name = f"{form.name}.aff"
    files = {**form.companions(), **form.form_pictures, "import1.csv": form.csv}
    rest = sorted(files.items(), key=lambda item: item[0].lower())
    text = program.recalculated([(name, form.filled_text()), *rest], name)
    if program.recalculated([(name, text), *rest], name) != text:
        raise SystemExit(f"{name}: a second recalculation changes values")
    write_archive(out / "samples" / name, [(name, text), *rest])


def write_packed_template(form, folder):
    name = f"{form.name}.aft"
    folder.mkdir(parents=True, exist_ok=True)
    rest = sorted(form.companions().items(), key=lambda item: item[0].lower())
    write_archive(folder / name, [(name, form.template_text()), *rest])


def main():
    parser = argparse.ArgumentParser(description="Makes the sample forms below share/.")
    parser.add_argument("--cli", type=pathlib.Path, help="the program sheetwright-cli; without it no filled forms are made")
    parser.add_argument("--out", type=pathlib.Path, default=SHARE, help="where to write instead of share/")
    parser.add_argument("--packed", type=pathlib.Path, help="also write the templates as archives into this folder")
    options = parser.parse_args()
    out = options.out.resolve()
    with tempfile.TemporaryDirectory() as home:
        program = Program(options.cli.resolve(), out, home) if options.cli else None
        for form in sample_forms():
            write_plain_files(form, out)
            if program:
                write_filled_form(form, program, out)
                program.run("check", out / "templates" / f"{form.name}.aft", out / "samples" / f"{form.name}.aff")
            if options.packed:
                write_packed_template(form, options.packed.resolve())


if __name__ == "__main__":
    main()
