// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

#include "files/ImportExportHandler.h"

ImportExportHandler::ImportExportHandler(const QString& component) : mComponent(component) {}

ImportExportHandler::ImportExportHandler(const ImportExportHandler& other) = default;

ImportExportHandler& ImportExportHandler::operator=(const ImportExportHandler& other) = default;

ImportExportHandler::~ImportExportHandler() = default;
