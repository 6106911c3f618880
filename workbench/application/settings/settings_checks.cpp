// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

#include "workbench/application/settings/settings_checks.h"

#include "frame/read_setting.h"
#include "frame/settings_keys.h"
#include "workbench/application/settings/MemoryFile.h"
#include "workbench/application/settings/SettingsFormat.h"

#include <QFile>
#include <QFileInfo>
#include <QSettings>

#include <cstdio>

using namespace Qt::StringLiterals;

namespace fennar {

namespace {

/** The largest that the options offer. */
constexpr int largest_font = 72;

/** What has to be on a screen of a window's title, by which it is moved. */
constexpr QSize grip(100, 20);

/** The first name of its kind that is free. */
QString name_beside(const QString& path)
{
    QString name = path + u".unreadable"_s;
    for (int number = 2; QFileInfo::exists(name); ++number)
        name = path + u".unreadable-%1"_s.arg(number);
    return name;
}

struct WindowKeys
{
    QLatin1StringView x;
    QLatin1StringView y;
    QLatin1StringView width;
    QLatin1StringView height;
};

void bound_window(QSettings& settings, const WindowKeys& keys, const QRect& screens)
{
    if (settings.contains(keys.width) && settings.contains(keys.height)) {
        const QSize size(read_setting(settings, keys.width, 0), read_setting(settings, keys.height, 0));
        const QSize bounded = size.boundedTo(screens.size());
        if (size.isEmpty()) {
            settings.remove(keys.width);
            settings.remove(keys.height);
        } else if (size != bounded) {
            settings.setValue(keys.width, bounded.width());
            settings.setValue(keys.height, bounded.height());
        }
    }
    if (settings.contains(keys.x) && settings.contains(keys.y)) {
        const QPoint place(read_setting(settings, keys.x, 0), read_setting(settings, keys.y, 0));
        if (!screens.intersects(QRect(place, grip))) {
            settings.remove(keys.x);
            settings.remove(keys.y);
        }
    }
}

} // namespace

bool are_readable_settings(const QString& path)
{
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        return false;
    const QByteArray text = file.readAll();
    if (file.error() != QFileDevice::NoError)
        return false;
    // A disk that is full is not the file's fault, so the copy is not on it.
    const MemoryFile copy(text);
    if (!copy.is_valid())
        return true;
    const QSettings settings(copy.name(), QSettings::IniFormat);
    // Nothing is looked into before somebody asks.
    settings.allKeys();
    return settings.status() == QSettings::NoError;
}

std::optional<QString> keep_unreadable_settings(const QString& path)
{
    const QString kept = name_beside(path);
    // Not QFile's, which copies where it cannot rename, and takes the copy for whole.
    if (std::rename(QFile::encodeName(path).constData(), QFile::encodeName(kept).constData()) != 0)
        return {};
    const QSettings old(kept, QSettings::IniFormat);
    QSettings settings(path, settings_format());
    const QStringList keys = old.allKeys();
    for (const QString& key : keys)
        settings.setValue(key, old.value(key));
    return u"ERROR: the settings file \"%1\" cannot be read in full. It is kept as \"%2\"\n"_s.arg(path,
                                                                                                   kept);
}

QString keep_unreadable_settings()
{
    const QString path = QSettings().fileName();
    if (!QFileInfo::exists(path) || are_readable_settings(path))
        return {};
    return keep_unreadable_settings(path).value_or(
        u"ERROR: the settings file \"%1\" cannot be read\n"_s.arg(path));
}

QString tell_unwritable_settings()
{
    const QSettings settings;
    return settings.isWritable()
               ? QString()
               : u"ERROR: the settings cannot be written in \"%1\"; changes are lost at the end\n"_s.arg(
                     settings.fileName());
}

void bound_settings(const QRect& screens)
{
    using namespace settings_keys;
    QSettings settings;
    bound_window(settings, {x, y, width, height}, screens);
    bound_window(settings, {journal_x, journal_y, journal_width, journal_height}, screens);
    if (read_setting(settings, font_size, 0) > largest_font)
        settings.setValue(font_size, largest_font);
}

} // namespace fennar
