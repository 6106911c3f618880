// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

// Takes whatever the fuzzer comes up with for a settings file. What can be read of it is looked through as at
// the start of the program, and written.

#include "frame/read_setting.h"
#include "frame/settings_keys.h"
#include "fuzz/fuzz_target.h"
#include "workbench/application/settings/MemoryFile.h"
#include "workbench/application/settings/SettingsFormat.h"
#include "workbench/application/settings/settings_checks.h"

#include <QRect>

#include <algorithm>

using namespace fennar;
using namespace Qt::StringLiterals;

namespace {

/** Whether it is of a kind that the program keeps. Streams of other kinds differ between versions of Qt. */
bool is_own(const QVariant& value)
{
    switch (value.typeId()) {
    case QMetaType::UnknownType:
    case QMetaType::QByteArray:
    case QMetaType::QString:
    case QMetaType::QStringList:
    case QMetaType::QRect:
    case QMetaType::QSize:
    case QMetaType::QPoint:
        return true;
    case QMetaType::QVariantList: {
        const QVariantList list = value.toList();
        return std::all_of(list.begin(), list.end(), &is_own);
    }
    default:
        return false;
    }
}

QSettings::SettingsMap contents(const QSettings& settings)
{
    QSettings::SettingsMap map;
    const QStringList keys = settings.allKeys();
    for (const QString& key : keys) {
        // Keys with slashes too many are listed but cannot be asked for.
        const bool regular = !key.startsWith(u'/') && !key.endsWith(u'/') && !key.contains("//"_L1);
        if (const QVariant value = settings.value(key); regular && is_own(value))
            map.insert(key, value);
    }
    return map;
}

/** As the shell reads its own keys, whatever they hold. */
void read_as_shell(const QSettings& settings)
{
    const QStringList keys = settings.allKeys();
    for (const QString& key : keys) {
        read_setting(settings, key, 0);
        read_setting(settings, key, false);
        read_setting(settings, key, QString());
        read_setting(settings, key, QStringList());
        read_setting(settings, key, QByteArray());
    }
}

} // namespace

// Qt reserves room for as many items as a damaged list is said to hold, and goes on without if it gets none.
// Outside of the sanitizer such room costs nothing while it is not used.
extern "C" const char* __asan_default_options()
{
    return "allocator_may_return_null=1:max_allocation_size_mb=64";
}

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    const MemoryFile file({reinterpret_cast<const char*>(data), static_cast<qsizetype>(size)});
    expect(file.is_valid(), "memory can be a file");
    QSettings::SettingsMap first;
    {
        QSettings settings(file.name(), settings_format());
        read_as_shell(settings);
        first = contents(settings);
    }
    const QByteArray written = ini_text(first);
    const MemoryFile again(written);
    expect(again.is_valid(), "memory can be a file");
    const QSettings settings(again.name(), QSettings::IniFormat);
    expect(settings.status() == QSettings::NoError, "what is written can be read");
    expect(ini_text(contents(settings)) == written, "settings that were written come back");
    return 0;
}
