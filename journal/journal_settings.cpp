// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

#include "journal/journal_settings.h"

#include "files/RecentFiles.h"
#include "frame/read_setting.h"
#include "frame/settings_keys.h"
#include "journal/JournalEditor.h"

#include <QGuiApplication>
#include <QScreen>
#include <QSettings>

namespace {

constexpr int most_recent_files = 5;

} // namespace

void restore_settings(JournalEditor& editor, RecentFiles* recent)
{
    QSettings settings;
    const QRect screen = QGuiApplication::primaryScreen()->geometry();
    const int x = read_setting(settings, settings_keys::journal_x, 0);
    const int y = read_setting(settings, settings_keys::journal_y, 0);
    // A missing value reads as 0 and counts like a stored 0 (docs/surprises.md).
    const bool on_screen = x >= 1 && x < screen.width() && y >= 1 && y < screen.height();
    editor.move(on_screen ? QPoint(x, y) : QPoint(0, 0));
    if (settings.contains(settings_keys::journal_width) && settings.contains(settings_keys::journal_height))
        editor.resize(read_setting(settings, settings_keys::journal_width, 0),
                      read_setting(settings, settings_keys::journal_height, 0));

    JournalEditor::set_save_prompt(read_setting(settings, settings_keys::journal_prompt, true));

    // Oldest first.
    for (int number = most_recent_files; recent && number >= 1; --number) {
        const QString file =
            read_setting(settings, settings_keys::numbered(settings_keys::recent_journal, number), QString());
        if (!file.isEmpty())
            recent->add(file);
    }
}

void save_settings(const JournalEditor& editor, const RecentFiles* recent)
{
    QSettings settings;
    settings.setValue(settings_keys::journal_x, editor.x());
    settings.setValue(settings_keys::journal_y, editor.y());
    settings.setValue(settings_keys::journal_width, editor.geometry().width());
    settings.setValue(settings_keys::journal_height, editor.geometry().height());
    settings.setValue(settings_keys::journal_prompt, JournalEditor::do_save_prompt());

    for (int number = 1; number <= most_recent_files; ++number)
        settings.remove(settings_keys::numbered(settings_keys::recent_journal, number));
    if (!recent)
        return;
    std::vector<QString> files;
    recent->get_entries(files);
    int number = 0;
    for (const QString& file : files)
        settings.setValue(settings_keys::numbered(settings_keys::recent_journal, ++number), file);
}
