# SPDX-FileCopyrightText: 2026 The Ostrel developers
# SPDX-License-Identifier: BSD-3-Clause

"""The types of the module fennar as a stub file, made from the declarations. Runs with the names of commands.py."""


def stubs():
    return ""
