// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

#include "workbench/settings_checks.h"

#include "frame/read_setting.h"

#include <QFile>
#include <QFileInfo>
#include <QSettings>
#include <QTemporaryDir>

using namespace Qt::StringLiterals;

namespace {

/** The largest that the options offer. */
constexpr int largest_font = 72;

/** What has to be on a screen of a window's title, by which it is moved. */
constexpr QSize grip(100, 20);

bool is_readable(const QString& path)
{
    // By a copy: Qt keeps what it has read once under a name, and tells the first reader alone what was
    // wrong.
    const QTemporaryDir place;
    const QString copy = place.filePath(u"copy"_s);
    if (!QFile::copy(path, copy))
        return false;
    const QSettings settings(copy, QSettings::IniFormat);
    // Nothing is looked into before somebody asks.
    settings.allKeys();
    return settings.status() == QSettings::NoError;
}

/** The first name of its kind that is free. */
QString name_beside(const QString& path)
{
    QString name = path + u".unreadable"_s;
    for (int number = 2; QFileInfo::exists(name); ++number)
        name = path + u".unreadable-%1"_s.arg(number);
    return name;
}

void bound_window(QSettings& settings, const QString& group, const QRect& screens)
{
    settings.beginGroup(group);
    if (settings.contains("width"_L1) && settings.contains("height"_L1)) {
        const QSize size(read_setting(settings, u"width"_s, 0), read_setting(settings, u"height"_s, 0));
        if (size.isEmpty()) {
            settings.remove("width"_L1);
            settings.remove("height"_L1);
        } else if (size != size.boundedTo(screens.size())) {
            settings.setValue("width"_L1, size.boundedTo(screens.size()).width());
            settings.setValue("height"_L1, size.boundedTo(screens.size()).height());
        }
    }
    const QPoint place(read_setting(settings, u"x"_s, 0), read_setting(settings, u"y"_s, 0));
    const bool placed = settings.contains("x"_L1) && settings.contains("y"_L1);
    if (placed && !screens.intersects(QRect(place, grip))) {
        settings.remove("x"_L1);
        settings.remove("y"_L1);
    }
    settings.endGroup();
}

} // namespace

QString keep_unreadable_settings()
{
    const QString path = QSettings().fileName();
    if (!QFileInfo::exists(path) || is_readable(path))
        return {};
    const QString kept = name_beside(path);
    if (!QFile::rename(path, kept))
        return u"ERROR: the settings file \"%1\" cannot be read\n"_s.arg(path);
    const QSettings old(kept, QSettings::IniFormat);
    QSettings settings;
    const QStringList keys = old.allKeys();
    for (const QString& key : keys)
        settings.setValue(key, old.value(key));
    return u"ERROR: the settings file \"%1\" cannot be read in full. It is kept as \"%2\"\n"_s.arg(path,
                                                                                                   kept);
}

void bound_settings(const QRect& screens)
{
    QSettings settings;
    bound_window(settings, u"ostrelgui/ostrel"_s, screens);
    bound_window(settings, u"ostrelgui/journal"_s, screens);
    const auto font_size = u"ostrelgui/command/fontsize"_s;
    if (read_setting(settings, font_size, 0) > largest_font)
        settings.setValue(font_size, largest_font);
}
