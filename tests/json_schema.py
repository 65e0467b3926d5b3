#!/usr/bin/env python3
"""Holds the JSON of every command against its schema: json_schema.py PROGRAM SOURCE

Asked are the examples of each command's help and the questions below.  A command without
a schema, and a schema without a command, are faults.
"""

import json
import os
import re
import shlex
import subprocess
import sys
import tempfile

try:
    from jsonschema import Draft202012Validator
except ImportError:
    print("skipped: python3-jsonschema is not installed")
    sys.exit(77)

# What the examples leave out: other forms of an answer, and values that are missing.
QUESTIONS = """
    sky --at -90,0 --time 2026-06-21T12:00Z
    day --at 69.65,18.96 --date 2026-06-21
    day --at -90,0 --date 2026-06-21
    day --at 55,10 --date 2026-05-10
    path moon --at 69.65,18.96 --date 2026-12-21
    next-dark-night --at 69.65,18.96 --date 2026-06-01
    find moon --at Paris --azimuth 120 --from 2026-01-01 --range 1m
    find sun --at Paris --azimuth 5 --elevation 40 --range 1w
    eclipse LE2025Mar14T --at Paris
    eclipse SE2024Apr08T --at Sydney
    eclipses --from 2026-01-01 --to 2030-01-01
    meteors
    meteors PER
    meteors calendar --year 2026
    meteors quadrantids --at 69,19 --date 2026-01-02
    cameras zzz
    camera add Kit --sensor 23.5x15.6 --megapixels 26
    camera edit Kit --coc 0.02
    camera use kit
    camera remove Kit
    dof --solve distance --far inf
    timer status
    timer 1s
    timer reset
    pois zzz
    settings list
    settings get awards_name
    settings set awards_name x
    settings reset --all
    open zenivo://plans
    store info
    store dedupe
"""


class Program:
    def __init__(self, program, home):
        self.program = program
        self.environment = dict(os.environ, ZENIVO_HOME=home)

    def run(self, words):
        return subprocess.run([self.program, *words], capture_output=True, text=True,
                              env=self.environment, timeout=120)

    def commands(self):
        lines = self.run(["--help"]).stdout.split("Subcommands:\n")[1].split("\n\n")[0]
        return re.findall(r"^  ([\w-]+) ", lines, re.MULTILINE)

    def examples(self, command):
        text = self.run([command, "--help"]).stdout
        lines = re.findall(r"^  zenivo (.*)$", text, re.MULTILINE)
        # In a text that is piped, and not of a picture or a table for another program.
        return [[w for w in shlex.split(line) if w not in ("--json", "--csv", "--geojson")] for line in lines]


def fault_of(program, words, validators):
    outcome = program.run([*words, "--json"])
    if outcome.returncode != 0:
        return outcome.stderr.strip()
    errors = validators[words[0]].iter_errors(json.loads(outcome.stdout))
    return next((f"{error.json_path}: {error.message[:200]}" for error in errors), None)


def main():
    folder = os.path.join(sys.argv[2], "docs", "schema")
    validators = {}
    for name in sorted(os.listdir(folder)):
        with open(os.path.join(folder, name)) as file:
            schema = json.load(file)
        Draft202012Validator.check_schema(schema)
        validators[name.removesuffix(".json")] = Draft202012Validator(schema)
    failures = 0
    with tempfile.TemporaryDirectory() as home:
        program = Program(sys.argv[1], home)
        commands = program.commands()
        for name in set(commands) ^ set(validators):
            print(f"{name}: no such command" if name in validators else f"{name}: no schema")
            failures += 1
        questions = [words for name in commands for words in program.examples(name)]
        questions += [shlex.split(line) for line in QUESTIONS.strip().splitlines()]
        for words in questions:
            fault = fault_of(program, words, validators) if words[0] in validators else None
            if fault:
                print("zenivo " + shlex.join(words) + ": " + fault)
                failures += 1
    print(f"{len(questions)} answers, {failures} faults")
    sys.exit(1 if failures else 0)


if __name__ == "__main__":
    main()
