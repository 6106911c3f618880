// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

// Reads whatever the fuzzer comes up with as a model file: as it is, and with the last line that it should
// have.

#include "fuzz/fuzz_target.h"
#include "workbench/components/geometry/exchange/model_format.h"
#include "workbench/components/geometry/model/GeometryError.h"
#include "workbench/components/geometry/model/GeometryModel.h"

#include <QBuffer>
#include <QCryptographicHash>

#include <cmath>
#include <optional>

using namespace fennar::geometry;

namespace {

std::optional<GeometryContents> read(QByteArray bytes)
{
    QBuffer device(&bytes);
    device.open(QIODevice::ReadOnly);
    try {
        return read_model(device);
    } catch (const GeometryError& error) {
        expect(!error.message().isEmpty(), "what cannot be read says why");
        return std::nullopt;
    }
}

void check(const GeometryContents& contents)
{
    int id = 0;
    for (const GeometryContents::Solid& solid : contents.solids) {
        expect(solid.id > id && solid.id <= contents.last_id, "ids grow");
        expect(GeometryModel::is_name(solid.name), "solids have names");
        id = solid.id;
    }
    if (contents.mesh)
        expect(std::isfinite(contents.mesh->size) && contents.mesh->nodes >= 0, "a mesh has a size");
    const QByteArray written = write_model(contents).join();
    const auto again = read(written);
    expect(again.has_value(), "what is written can be read");
    expect(write_model(*again).join() == written, "a model that is opened and saved gives the same bytes");
    expect(again->solids.size() == contents.solids.size() && bool(again->mesh) == bool(contents.mesh),
           "all comes back");
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    const QByteArray bytes(reinterpret_cast<const char*>(data), static_cast<qsizetype>(size));
    const MemoryBound bound(size);
    if (const auto contents = read(bytes))
        check(*contents);
    const QByteArray sum = QCryptographicHash::hash(bytes, QCryptographicHash::Sha256).toHex();
    if (const auto contents = read(bytes + "end " + sum + '\n'))
        check(*contents);
    return 0;
}
