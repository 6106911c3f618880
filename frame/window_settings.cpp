// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

#include "frame/window_settings.h"

#include "console/CommandWindow.h"
#include "files/OstrelFileMenu.h"
#include "frame/Ostrel.h"
#include "frame/read_setting.h"
#include "frame/settings_keys.h"
#include "host/ostrelfw/CLOptions.h"
#include "host/ostrelfw/CLParser.h"
#include "journal/JournalEditor.h"
#include "options/ComponentTool.h"

#include <QDir>
#include <QFile>
#include <QSettings>
#include <QStandardPaths>

#include <algorithm>
#include <functional>
#include <vector>

using namespace Qt::StringLiterals;

namespace {

// A position beyond this is not trusted, whatever the screens are.
constexpr int largest_position = 1200;

// Qt reckons with positions, and its sums overflow for the smallest numbers. No window can be beyond this.
constexpr int smallest_position = -QWIDGETSIZE_MAX;

constexpr int most_recent_entries = 5;

// The oldest first, so that the newest ends up on top.
void restore_recent(const QSettings& settings, QLatin1StringView key, const std::function<void(QString)>& add)
{
    for (int i = most_recent_entries; i >= 1; --i) {
        const QString entry = read_setting(settings, settings_keys::numbered(key, i), QString());
        if (!entry.isEmpty())
            add(entry);
    }
}

void remove_recent(QSettings& settings, QLatin1StringView key)
{
    for (int i = 1; i <= most_recent_entries; ++i)
        settings.remove(settings_keys::numbered(key, i));
}

void save_recent(QSettings& settings, QLatin1StringView key, const std::vector<QString>& entries)
{
    int number = 0;
    for (const QString& entry : entries)
        settings.setValue(settings_keys::numbered(key, ++number), entry);
}

bool is_current_directory_writable()
{
    static const auto test_file = u".pwdtest"_s;
    QFile file(QDir(QDir::currentPath()).filePath(test_file));
    if (!file.open(QIODevice::ReadWrite))
        return false;
    file.close();
    file.remove();
    return true;
}

QString fallback_directory(const QString& last_resort)
{
    for (const auto location : {QStandardPaths::DocumentsLocation, QStandardPaths::HomeLocation}) {
        const QStringList directories = QStandardPaths::standardLocations(location);
        if (!directories.isEmpty())
            return directories.first();
    }
    return last_resort;
}

// A run that keeps to the directory in which it was started leaves it only if it cannot write there.
void restore_working_directory(bool keep, const QString& saved)
{
    if (keep && is_current_directory_writable())
        return;
    // Qt complains of a null character in a name.
    const bool usable = !saved.isEmpty() && !saved.contains(QChar::Null) && QDir(saved).exists();
    QDir::setCurrent(usable ? saved : fallback_directory(saved));
}

} // namespace

void restore_window_settings(Ostrel& window)
{
    QSettings settings;
    if (settings.contains(settings_keys::x) && settings.contains(settings_keys::y)) {
        const int x = read_setting(settings, settings_keys::x, 0);
        const int y = read_setting(settings, settings_keys::y, 0);
        const bool far_away = x > largest_position || y > largest_position;
        window.move(far_away ? QPoint(0, 0)
                             : QPoint(std::max(x, smallest_position), std::max(y, smallest_position)));
    }
    if (settings.contains(settings_keys::width) && settings.contains(settings_keys::height))
        window.resize(read_setting(settings, settings_keys::width, 0),
                      read_setting(settings, settings_keys::height, 0));

    OstrelFileMenu::mDoPrompt = read_setting(settings, settings_keys::save_prompt, true);

    const bool keep = CLOptions::instance()->batch_mode() ||
                      !read_setting(settings, settings_keys::restore_working_directory, false);
    restore_working_directory(keep, read_setting(settings, settings_keys::working_directory, QString()));

    const QString component_directory = read_setting(settings, settings_keys::component_path, QString());
    if (!component_directory.isEmpty())
        ComponentTool::sLastPath = component_directory;

    if (OstrelFileMenu* const menu = window.file_menu()) {
        restore_recent(settings, settings_keys::recent_file,
                       [menu](const QString& file) { menu->recent_file(file); });
        restore_recent(settings, settings_keys::recent_import,
                       [menu](const QString& command) { menu->recent_import(command); });
    }

    CommandWindow* const console = window.command_line();
    QFont font = console->get_font();
    const QString family = read_setting(settings, settings_keys::font_family, QString());
    if (!family.isEmpty())
        font.setFamily(family);
    // Without the key the console's own size stands. Qt complains of a size below 1 and keeps the old one.
    const int size = read_setting(settings, settings_keys::font_size, 8);
    if (settings.contains(settings_keys::font_size) && size > 0)
        font.setPointSize(size);
    console->set_font(font);
    window.journal_editor()->set_editor_font(font);

    if (read_setting(settings, settings_keys::use_trim, true))
        console->set_cmd_max_lines(read_setting(settings, settings_keys::trim_limit, 1024));
    else
        console->set_cmd_max_lines(0);
    console->set_other_max_lines(read_setting(settings, settings_keys::history_limit, 200));

    window.setUsingButtonRows(!read_setting(settings, settings_keys::breadcrumbs, false));

    // Last: a valid geometry overrides the position and the size above.
    window.restoreGeometry(read_setting(settings, settings_keys::geometry, QByteArray()));
}

void save_window_settings(const Ostrel& window)
{
    QSettings settings;
    // Read by nothing here: the arrangement of docks and toolbars does not come back (docs/surprises.md).
    settings.setValue(settings_keys::saved_state, window.saveState(0));
    settings.setValue(settings_keys::save_prompt, OstrelFileMenu::mDoPrompt);
    settings.setValue(settings_keys::component_path, ComponentTool::sLastPath);
    remove_recent(settings, settings_keys::recent_file);
    remove_recent(settings, settings_keys::recent_import);
    if (const OstrelFileMenu* const menu = window.file_menu()) {
        std::vector<QString> entries;
        menu->get_recent_files(entries);
        save_recent(settings, settings_keys::recent_file, entries);
        entries.clear();
        menu->get_recent_imports(entries);
        save_recent(settings, settings_keys::recent_import, entries);
    }

    const CommandWindow* const console = window.command_line();
    const QFont font = console->get_font();
    settings.setValue(settings_keys::font_family, font.family());
    settings.setValue(settings_keys::font_size, font.pointSize());
    // Without trimming the limit is written as 0, and the old one is gone (docs/surprises.md).
    const int limit = console->get_cmd_max_lines();
    settings.setValue(settings_keys::use_trim, limit != 0);
    settings.setValue(settings_keys::trim_limit, limit);
    settings.setValue(settings_keys::history_limit, console->get_other_max_lines());

    settings.setValue(settings_keys::journal_prompt, JournalEditor::do_save_prompt());

    settings.setValue(settings_keys::geometry, window.saveGeometry());
}
