// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

#include "host/navigation/TaskPanel.h"

TaskPanel::TaskPanel(QWidget* parent) : QWidget(parent) {}

TaskPanel::~TaskPanel() = default;
