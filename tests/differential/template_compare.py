#!/usr/bin/env python3
"""Runs the template reference and `mrd generate` on random projects with random layouts and shows where they differ.

  template_compare.py [--mrd PROGRAM] [--program-dir DIR] [--seeds N] [--first SEED] [--modes all,new-only,page] [--keep DIR]

Layouts, page-turn strips and prefixes are drawn with the project. Options, work directory and output are those of compare.py.
"""
import sys
from datetime import datetime

import compare
import random_layout
import template_reference


def run_reference(scenario, mode):
    result = template_reference.generate(str(scenario.project), str(scenario.program), scenario.given_export, mode, scenario.page,
                                         datetime.utcfromtimestamp(scenario.now), scenario.prefix)
    messages = [(number, text and text.replace("\r\n", "\n")) for number, text in result.messages]
    return compare.Outcome(scenario, result.closing or "", messages, 1 if result.refused else 0)


if __name__ == "__main__":
    sys.exit(compare.main(__doc__, random_layout.make, run_reference))
