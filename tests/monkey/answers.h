// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

#pragma once

class Monkey;
class QWidget;

/** Does as a user may with a dialog or menu that is open, which mostly closes it. */
void answer(Monkey& monkey, QWidget* dialog);
/** Closes it, whatever it takes. */
void dismiss(QWidget* dialog);
