#!/usr/bin/env python3
"""Runs the reference of the edition for telephones and `mrd generate --imode` on random projects and shows where they differ.

  imode_compare.py [--mrd PROGRAM] [--program-dir DIR] [--seeds N] [--first SEED] [--keep DIR]

Options, work directory and output are those of compare.py.
"""
import sys
from datetime import datetime

import compare
import imode_project
import imode_reference


def run_reference(scenario, _):
    result = imode_reference.generate(str(scenario.project), str(scenario.program), scenario.given_export,
                                      datetime.utcfromtimestamp(scenario.now))
    return compare.Outcome(scenario, result.closing or "", result.messages, 1 if result.refused else 0)


if __name__ == "__main__":
    sys.exit(compare.main(__doc__, imode_project.make, run_reference, ("imode",)))
