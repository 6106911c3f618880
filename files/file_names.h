// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

#pragma once

#include <QString>

/**
 * The directory of @p file, with the separator at its end.
 *
 * The last slash counts, and the last backslash only where there is no slash; a name with neither is given
 * back whole (docs/surprises.md).
 */
QString directory_of(const QString& file);

/** Whether the last part of @p file, behind the last slash, has no dot, so that it needs an extension. */
bool lacks_extension(const QString& file);

/**
 * The extension, with its dot, that the first of several filters gives to a file: ".mdl" for
 * "Models (*.mdl);;All Files (*.*)". Empty if there is none to be found.
 *
 * Only the form "Name (*.extension)" makes sense of it. Of other forms it makes what the rule says: a
 * first filter of several patterns followed by a second filter leaves a blank at the end.
 */
QString extension_of_filters(const QString& filters);

/** The extension that one filter gives: ".dat" for "Data (*.dat *.txt)", ".e" for "Results (*.e*)". */
QString extension_of_filter(const QString& filter);
