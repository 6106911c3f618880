# SPDX-FileCopyrightText: 2026 The Ostrel developers
# SPDX-License-Identifier: BSD-3-Clause

"""The exception of the module fennar."""


class CommandError(Exception):
    """A command of the application failed.

    message  one line that says what is wrong
    command  the name of the command; empty if there is none
    column   the character of the command line that is at fault, from 1; 0 if none is
    remedy   what to do about it, which the message ends with; may be empty
    """

    def __init__(self, message, command="", column=0, remedy=""):
        super().__init__(message, command, column, remedy)
        self.message = message
        self.command = command
        self.column = column
        self.remedy = remedy

    def __str__(self):
        text = f"{self.command}: " if self.command else ""
        if self.column:
            text += f"column {self.column}: "
        return text + self.message


CommandError.__module__ = "fennar"
