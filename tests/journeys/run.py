#!/usr/bin/env python3
"""Runs a journey: run.py BINARY-FOLDER FILE.journey

A journey is a script of ledgerminder-cli with what it must answer:

    #! --now "03/02/2026 10:30"    options for the runs that follow
    press cmdOk                    a line of the script
    => {"box": {"main": "..."}}    an answer: a JSON object that one line of the output must contain
    ---                            the program ends here; the rest runs on the same directory
    !! edit-cell . fgSessions 1 INVOICE 7    a command in the program directory between two runs

The program directory is "program" in the folder where all runs.

The answers must come in the order told. Other lines may stand between them, but no message box
and no error that the journey does not tell.
"""
import json
import os
import pathlib
import shlex
import subprocess
import sys
import tempfile

# The wrapper complains of a missing 32-bit Wine, so what it wraps is started where it is there.
WINE = next((path for path in ("/usr/lib/wine/wine64",) if os.path.exists(path)), "wine")


def contains(actual, wanted):
    if isinstance(wanted, dict):
        return isinstance(actual, dict) and all(
            key in actual and contains(actual[key], value) for key, value in wanted.items())
    return actual == wanted


def check(output, wanted):
    at = 0
    for number, want in wanted:
        while True:
            if at == len(output):
                return f"line {number}: no answer {json.dumps(want, ensure_ascii=False)}"
            line, at = output[at], at + 1
            if contains(line, want):
                break
            if "box" in line or "error" in line:
                return (f"line {number}: wanted {json.dumps(want, ensure_ascii=False)}\n"
                        f"but there came {json.dumps(line, ensure_ascii=False)}")
    for line in output[at:]:
        if "box" in line or "error" in line:
            return f"at the end there came {json.dumps(line, ensure_ascii=False)}"
    return None


def command_of(binaries, name):
    """How a program of ours is started: one for Windows elsewhere than there by Wine."""
    windows = pathlib.Path(binaries) / f"{name}.exe"
    if not windows.exists():
        return [str(pathlib.Path(binaries) / name)]
    return [str(windows)] if os.name == "nt" else [WINE, str(windows)]


def put_on_path(binaries, folder):
    """A folder in which a shell finds edit-cell by its plain name."""
    if os.name == "nt" or not (pathlib.Path(binaries) / "edit-cell.exe").exists():
        return binaries
    script = pathlib.Path(folder) / "edit-cell"
    script.write_text(f'#!/bin/sh\nexec {shlex.join(command_of(binaries, "edit-cell"))} "$@"\n')
    script.chmod(0o755)
    return folder


def run(cli, options, directory, script, wanted):
    # --force: a desktop program that runs on this machine is not asked about.
    done = subprocess.run([*cli, "--dir", directory, "--force", *options, "run", "-"],
                          input="\n".join(script) + "\n", capture_output=True, text=True,
                          timeout=120, encoding="utf-8", cwd=pathlib.Path(directory).parent)
    output = [json.loads(line) for line in done.stdout.splitlines()]
    fault = check(output, wanted)
    expects_error = any("error" in want for _, want in wanted)
    if not fault and done.returncode != (1 if expects_error else 0):
        fault = f"exit status {done.returncode}"
    if fault:
        print(done.stdout)
        print(done.stderr)
        print(fault)
        sys.exit(1)


def main():
    binaries, journey = map(os.path.abspath, sys.argv[1:])
    cli = command_of(binaries, "ledgerminder-cli")
    with tempfile.TemporaryDirectory() as folder:
        tools = put_on_path(binaries, folder)
        environment = {**os.environ, "PATH": os.pathsep.join([tools, os.environ["PATH"]])}
        directory = str(pathlib.Path(folder) / "program")
        options, script, wanted = [], [], []
        for number, line in enumerate(pathlib.Path(journey).read_text(encoding="utf-8").splitlines(), 1):
            if line.startswith("#!"):
                options = shlex.split(line[2:])
            elif line.startswith("=> "):
                wanted.append((number, json.loads(line[3:])))
            elif line.strip() == "---":
                run(cli, options, directory, script, wanted)
                script, wanted = [], []
            elif line.startswith("!! "):
                # By a shell of Unix, which Git brings along on Windows.
                subprocess.run(["sh", "-c", line[3:]], check=True, cwd=directory, env=environment)
            else:
                script.append(line)
        run(cli, options, directory, script, wanted)


main()
