// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

#pragma once

#include "workbench/components/geometry/model/GeometryModel.h"

class QIODevice;

namespace fennar::geometry {

/** The version of the format that write_model() writes, and the newest that read_model() reads. */
constexpr int model_format_version = 1;

/** The model in the format of docs/model-file-format.md: parts that belong one behind the other. */
QByteArrayList write_model(const GeometryContents& contents);

/**
 * Reads what write_model() has written, from the beginning of an open device that knows its size.
 *
 * Nothing is read into memory before it is clear that it is there. Throws a GeometryError that says what is
 * wrong and at which byte, counted from 0.
 */
GeometryContents read_model(QIODevice& device);

} // namespace fennar::geometry
