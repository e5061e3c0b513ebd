#!/usr/bin/env python3
"""The programs as the system meets them: commandline.py BINARY-FOLDER

What they answer without a display, what init leaves alone, saves that are killed or meet a limit on
the size of files, and two runs on one folder.
"""
import csv
import os
import pathlib
import resource
import shutil
import subprocess
import sys
import tempfile
import time

BINARIES = pathlib.Path(sys.argv[1])
CLI = str(BINARIES / "ledgerminder-cli")
DESKTOP = str(BINARIES / "ledgerminder")

NEW_PRACTICE = """load
press mnuNewPractice
set txtName "%s"
press cmdOk
"""


def run(*arguments, script="", **more):
    environment = {name: text for name, text in os.environ.items()
                   if name not in ("DISPLAY", "WAYLAND_DISPLAY", "QT_QPA_PLATFORM")}
    return subprocess.run(arguments, input=script, capture_output=True, text=True, timeout=60,
                          env=environment, **more)


def run_script(folder, script, *options, **more):
    return run(CLI, "--dir", folder, "--force", *options, "run", "-", script=script, **more)


def contents(folder):
    return {path.name: path.read_bytes() for path in pathlib.Path(folder).iterdir()
            if path.is_file()}


def answers_without_a_display(_):
    for program in [CLI] + [DESKTOP] * os.path.exists(DESKTOP):
        for word, start in (("--help", "Usage: ledgerminder"), ("--version", "LedgerMinder 4")):
            done = run(program, word)
            assert done.returncode == 0 and done.stdout.startswith(start), (program, word, done)
            assert not done.stderr, done.stderr


def init_never_touches_a_data_file(folder):
    assert run(CLI, "--dir", folder, "init").returncode == 0
    assert run_script(folder, NEW_PRACTICE % "Riverside" + "save\n").returncode == 0
    before = contents(folder)
    for options in ([], ["--force"]):
        for lost in (None, "Options.dat"):
            if lost:
                (pathlib.Path(folder) / lost).unlink(missing_ok=True)
                before.pop(lost, None)
            done = run(CLI, "--dir", folder, *options, "init")
            assert done.returncode == 2 and "data file" in done.stderr, done
            assert contents(folder) == before


def a_limit_on_the_size_of_files_is_told(folder):
    assert run_script(folder, NEW_PRACTICE % "Riverside" + "save\n").returncode == 0
    before = contents(folder)

    def limit():
        resource.setrlimit(resource.RLIMIT_FSIZE, (3000, 3000))

    # The start writes a file or two itself, which may fail too; the data must stay.
    done = run_script(folder, NEW_PRACTICE % ("x" * 9000) + "save\n", preexec_fn=limit)
    assert done.returncode == 1 and '"error":"not saved"' in done.stdout, done
    assert "File too large" in done.stdout, done
    assert contents(folder)["LedgerMinder.dat"] == before["LedgerMinder.dat"]


def killed_saves_leave_nothing_for_long(folder):
    assert run_script(folder, NEW_PRACTICE % "Riverside" + "save\n").returncode == 0
    left = 0
    for attempt in range(60):
        saving = subprocess.Popen([CLI, "--dir", folder, "--force", "run", "-"],
                                  stdin=subprocess.PIPE, stdout=subprocess.DEVNULL, text=True)
        saving.stdin.write("load\n" + "save\n" * 300)
        saving.stdin.flush()
        time.sleep(0.1 + attempt * 0.003)
        saving.kill()
        saving.communicate()
        left += len(list(pathlib.Path(folder).glob("*.tmp")))
        if left > 2:
            break
    assert left > 0, "no kill came in time"
    done = run_script(folder, "load\ndump fgPractices NAME\n")
    assert done.returncode == 0 and "Riverside" in done.stdout, done
    assert not list(pathlib.Path(folder).rglob("*.tmp"))


def two_runs_on_one_folder_keep_both_versions(folder):
    assert run(CLI, "--dir", folder, "init").returncode == 0
    first = subprocess.Popen([CLI, "--dir", folder, "--force", "--now", "28/02/2026 10:30", "run", "-"],
                             stdin=subprocess.PIPE, stdout=subprocess.PIPE, text=True)
    first.stdin.write(NEW_PRACTICE % "Of the first")
    first.stdin.flush()
    while "closed" not in first.stdout.readline():
        pass  # it has loaded
    assert run_script(folder, NEW_PRACTICE % "Of the second" + "save\n").returncode == 0
    output, _ = first.communicate("save\n")
    assert first.returncode == 0 and '"main":"The data file holds another version' in output, output
    kept = str(pathlib.Path(folder) / "LedgerMinder kept 28 Feb 2026 1030.dat")
    for name, load in (("Of the first", "load\n"), ("Of the second", f'load "{kept}"\n')):
        done = run_script(folder, load + "dump fgPractices NAME\n")
        assert done.returncode == 0 and name in done.stdout and done.stdout.count('"row"') == 1, done


def exports_are_whole_or_leave_the_old_file(folder):
    assert run(CLI, "--now", "03/02/2026 10:30", "demo", folder).returncode == 0
    file = pathlib.Path(folder) / "out.xml"
    assert run(CLI, "--dir", folder, "export", "xml", str(file)).returncode == 0
    whole = file.read_bytes()
    assert whole.endswith(b"</locumdata>\r\n"), whole[-40:]

    def limit():
        resource.setrlimit(resource.RLIMIT_FSIZE, (4096, 4096))
    done = run(CLI, "--dir", folder, "export", "xls", str(file), preexec_fn=limit)
    assert done.returncode == 1 and "Unable to export the data" in done.stderr, done
    assert "File too large" in done.stderr and file.read_bytes() == whole, done
    for words, told in ((["csv", str(file)], "csv takes a table"),
                        (["xml", str(file), "fgNothing"], "no such table"),
                        (["xls", str(file), "fgPensionPayments"], "no such table"),
                        (["pdf", str(file)], "export knows")):
        done = run(CLI, "--dir", folder, "export", *words)
        assert done.returncode == 2 and told in done.stderr, done
    assert run(CLI, "--dir", folder, "export", "xls", str(file), "fgExtras").returncode == 0
    assert file.read_bytes().count(b"<Worksheet ") == 1
    records = (pathlib.Path(folder) / "LedgerMinder.dat").read_bytes()
    done = run(CLI, "--dir", folder, "export", "csv", f"{folder}/LedgerMinder.dat", "fgSessions")
    assert done.returncode == 1 and "The program itself uses this file" in done.stderr, done
    assert (pathlib.Path(folder) / "LedgerMinder.dat").read_bytes() == records
    done = run(CLI, "--dir", folder, "report", "9", "01/01/2026", "28/02/2026")
    assert done.returncode == 0 and done.stdout.splitlines()[-1] == "TOTAL,6,4,2,3,15", done
    done = run(CLI, "--dir", folder, "report", "39", "01/01/2026", "28/02/2026")
    assert done.returncode == 2 and "from 0 to 38" in done.stderr, done


def a_spreadsheet_program_reads_the_workbook(folder):
    office = shutil.which("soffice") or shutil.which("libreoffice")
    if not office:
        print("  no spreadsheet program here")
        return
    assert run(CLI, "--now", "03/02/2026 10:30", "demo", folder).returncode == 0
    script = 'load\ncell fgSessions 2 NOTES "Café, 5 £ – naïve"\nsave\n'
    assert run_script(folder, script, "--now", "03/02/2026 10:30").returncode == 0
    book = pathlib.Path(folder) / "book.xml"
    assert run(CLI, "--dir", folder, "export", "xls", str(book)).returncode == 0
    subprocess.run([office, "--headless", f"-env:UserInstallation=file://{folder}/office",
                    "--convert-to", "csv:Text - txt - csv (StarCalc):44,34,76,1",
                    "--outdir", folder, str(book)], check=True, capture_output=True, timeout=180)
    with open(pathlib.Path(folder) / "book.csv", encoding="utf-8", newline="") as table:
        first = list(csv.reader(table))[1]
    assert first == ["Riverside Surgery", "INV-00002", "05 Jan 2026", "", "8:30", "12:30", "NHS Normal",
                     "340", "0", "44", "0", "384", "Café, 5 £ – naïve", "", "A,B"], first


for test in (answers_without_a_display, init_never_touches_a_data_file,
             a_limit_on_the_size_of_files_is_told, killed_saves_leave_nothing_for_long,
             two_runs_on_one_folder_keep_both_versions,
             exports_are_whole_or_leave_the_old_file, a_spreadsheet_program_reads_the_workbook):
    with tempfile.TemporaryDirectory() as directory:
        print(test.__name__, flush=True)
        test(str(pathlib.Path(directory) / "program"))
