// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

#include "host/ostrelfw/ComponentTracker.h"

ComponentTracker::~ComponentTracker() = default;
void ComponentTracker::component_loading(const char*) {}
void ComponentTracker::component_loaded(const char*) {}
void ComponentTracker::component_unloading(const char*) {}
void ComponentTracker::component_unloaded(const char*) {}
