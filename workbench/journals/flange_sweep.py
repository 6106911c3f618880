# SPDX-FileCopyrightText: 2026 The Ostrel developers
# SPDX-License-Identifier: BSD-3-Clause

"""Sweeps flange.jou in any python3: flange_sweep.py [SCHEDULER], where SCHEDULER is the address of a Dask cluster's."""

import pathlib
import sys

from fennar.sweep import sweep

client = None
if sys.argv[1:]:
    from distributed import Client

    client = Client(sys.argv[1])

journal = pathlib.Path(__file__).with_name("flange.jou")
table = sweep(journal, radius=[6, 9], size=[4, 6, 8], client=client, folder="flange_cases")
for row in table:
    if row.status == "done":
        print(row.parameters, row.results["list"][0]["volume"], row.results["mesh"]["node_count"])
    else:
        print(row.parameters, row.status, row.line, row.text, row.message)
