#!/usr/bin/python3
"""Holds what `kelvane info --json` prints to its documented schema.

check_schema.py SCHEMA KELVANE DATASET...
"""
import copy
import json
import subprocess
import sys

import jsonschema


def info(program, data_set):
    """The listing of a data set, which is printed whether it opens or not."""
    run = subprocess.run([program, "info", "--json", data_set], stdout=subprocess.PIPE,
                         stderr=subprocess.PIPE, check=False)
    if run.returncode not in (0, 1):
        raise SystemExit(f"{data_set}: status {run.returncode}: {run.stderr.decode()}")
    listing = json.loads(run.stdout)
    if (run.returncode == 0) != listing["opened"]:
        raise SystemExit(f"{data_set}: status {run.returncode}, opened {listing['opened']}")
    return listing


def must_fail(validator, listing, what):
    if validator.is_valid(listing):
        raise SystemExit(f"the schema takes a listing {what}")


def main():
    schema_file, program, *data_sets = sys.argv[1:]
    with open(schema_file, encoding="utf-8") as stream:
        schema = json.load(stream)
    jsonschema.Draft202012Validator.check_schema(schema)
    validator = jsonschema.Draft202012Validator(schema)
    for data_set in data_sets:
        listing = info(program, data_set)
        validator.validate(listing)
        # A schema that takes everything would prove nothing.
        for key in listing:
            less = copy.deepcopy(listing)
            del less[key]
            must_fail(validator, less, f"without {key}")
        must_fail(validator, listing | {"surplus": 1}, "with more than it says")
        must_fail(validator, listing | {"verdict": "fine"}, "of another verdict")
    print(f"{len(data_sets)} listings keep to the schema")


main()
