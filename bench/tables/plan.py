#!/usr/bin/env python3
"""Prints the plan of the whole processes to time, for the program alternate.

    plan.py KELVANE DATA_FOLDER TINY_FOLDER PICTURE RUNS
"""

import sys

import processes

if len(sys.argv) != 6:
    sys.exit(__doc__)
print(processes.plan(*sys.argv[1:5], int(sys.argv[5])), end="")
