// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

#include "workbench/components/geometry/programs/program_folder.h"

#include <QFile>
#include <QFileInfo>

#include <dlfcn.h>

using namespace Qt::StringLiterals;

namespace fennar::geometry {

QDir program_folder()
{
    Dl_info info = {};
    if (!dladdr(reinterpret_cast<const void*>(&program_folder), &info) || !info.dli_fname)
        return {};
    return QFileInfo(QFile::decodeName(info.dli_fname)).canonicalPath() + u"/libexec"_s;
}

} // namespace fennar::geometry
