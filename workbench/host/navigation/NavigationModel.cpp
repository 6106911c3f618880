// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

#include "host/navigation/NavigationModel.h"

NavigationModel::NavigationModel(QObject* parent) : QStandardItemModel(parent) {}

NavigationModel::~NavigationModel() = default;
