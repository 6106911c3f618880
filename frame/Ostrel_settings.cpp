// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

#include "console/CommandWindow.h"
#include "files/OstrelFileMenu.h"
#include "frame/Ostrel.h"
#include "frame/read_setting.h"
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

// The keys of the entries of a recent list are this and the numbers from 1, the newest entry's, to the most.
const auto recent_file_key = u"/file"_s;
const auto recent_import_key = u"/import"_s;
constexpr int most_recent_entries = 5;

// The oldest first, so that the newest ends up on top.
void restore_recent(const QSettings& settings, const QString& key, const std::function<void(QString)>& add)
{
    for (int i = most_recent_entries; i >= 1; --i) {
        const QString entry = read_setting(settings, key + QString::number(i), QString());
        if (!entry.isEmpty())
            add(entry);
    }
}

void remove_recent(QSettings& settings, const QString& key)
{
    for (int i = 1; i <= most_recent_entries; ++i)
        settings.remove(key + QString::number(i));
}

void save_recent(QSettings& settings, const QString& key, const std::vector<QString>& entries)
{
    int number = 0;
    for (const QString& entry : entries)
        settings.setValue(key + QString::number(++number), entry);
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

void Ostrel::restore_settings()
{
    QSettings settings;
    settings.beginGroup(u"/ostrelgui"_s);
    settings.beginGroup(u"/ostrel"_s);

    if (settings.contains(u"/x"_s) && settings.contains(u"/y"_s)) {
        const int x = read_setting(settings, u"/x"_s, 0);
        const int y = read_setting(settings, u"/y"_s, 0);
        const bool far_away = x > largest_position || y > largest_position;
        move(far_away ? QPoint(0, 0)
                      : QPoint(std::max(x, smallest_position), std::max(y, smallest_position)));
    }
    if (settings.contains(u"/width"_s) && settings.contains(u"/height"_s))
        resize(read_setting(settings, u"/width"_s, 0), read_setting(settings, u"/height"_s, 0));

    OstrelFileMenu::mDoPrompt = read_setting(settings, u"/saveprompt"_s, true);

    const bool keep =
        CLOptions::instance()->batch_mode() || !read_setting(settings, u"/restoreWorkingDir"_s, false);
    restore_working_directory(keep, read_setting(settings, u"/workingdir"_s, QString()));

    const QString component_directory = read_setting(settings, u"/comppath"_s, QString());
    if (!component_directory.isEmpty())
        ComponentTool::sLastPath = component_directory;

    if (mFileMenu) {
        restore_recent(settings, recent_file_key,
                       [this](const QString& file) { mFileMenu->recent_file(file); });
        restore_recent(settings, recent_import_key,
                       [this](const QString& command) { mFileMenu->recent_import(command); });
    }

    settings.endGroup();
    settings.beginGroup(u"/command"_s);

    QFont font = mCommandWindow->get_font();
    const QString family = read_setting(settings, u"/fontfamily"_s, QString());
    if (!family.isEmpty())
        font.setFamily(family);
    // Without the key the console's own size stands. Qt complains of a size below 1 and keeps the old one.
    const int size = read_setting(settings, u"/fontsize"_s, 8);
    if (settings.contains(u"/fontsize"_s) && size > 0)
        font.setPointSize(size);
    mCommandWindow->set_font(font);
    mJournalEditor->set_editor_font(font);

    if (read_setting(settings, u"/usetrim"_s, true))
        mCommandWindow->set_cmd_max_lines(read_setting(settings, u"/trimlimit"_s, 1024));
    else
        mCommandWindow->set_cmd_max_lines(0);
    mCommandWindow->set_other_max_lines(read_setting(settings, u"/historylimit"_s, 200));

    settings.endGroup();
    settings.endGroup();

    setUsingButtonRows(!read_setting(settings, u"/fennargui/commandpanel/breadcrumbs"_s, false));

    // Last: a valid geometry overrides the position and the size above.
    restoreGeometry(read_setting(settings, u"geometry"_s, QByteArray()));
}

void Ostrel::save_settings()
{
    QSettings settings;
    settings.beginGroup(u"/ostrelgui"_s);
    settings.beginGroup(u"/ostrel"_s);
    // Read by nothing, which is intended: the arrangement of docks and toolbars does not come back.
    settings.setValue(u"/saved_state"_s, saveState(0));
    settings.setValue(u"/saveprompt"_s, OstrelFileMenu::mDoPrompt);
    settings.setValue(u"/comppath"_s, ComponentTool::sLastPath);
    remove_recent(settings, recent_file_key);
    remove_recent(settings, recent_import_key);
    if (mFileMenu) {
        std::vector<QString> entries;
        mFileMenu->get_recent_files(entries);
        save_recent(settings, recent_file_key, entries);
        entries.clear();
        mFileMenu->get_recent_imports(entries);
        save_recent(settings, recent_import_key, entries);
    }

    settings.endGroup();
    settings.beginGroup(u"/command"_s);
    const QFont font = mCommandWindow->get_font();
    settings.setValue(u"/fontfamily"_s, font.family());
    settings.setValue(u"/fontsize"_s, font.pointSize());
    // Without trimming the limit is written as 0, which is intended: the old one is gone.
    const int limit = mCommandWindow->get_cmd_max_lines();
    settings.setValue(u"/usetrim"_s, limit != 0);
    settings.setValue(u"/trimlimit"_s, limit);
    settings.setValue(u"/historylimit"_s, mCommandWindow->get_other_max_lines());

    settings.endGroup();
    settings.beginGroup(u"/journal"_s);
    settings.setValue(u"/unsavedjournalprompt"_s, JournalEditor::do_save_prompt());

    settings.endGroup();
    settings.endGroup();

    settings.setValue(u"geometry"_s, saveGeometry());
}
