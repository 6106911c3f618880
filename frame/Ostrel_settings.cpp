// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

#include "console/CommandWindow.h"
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

using namespace Qt::StringLiterals;

namespace {

// A position beyond this is not trusted, whatever the screens are.
constexpr int largest_position = 1200;

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
    const bool usable = !saved.isEmpty() && QDir(saved).exists();
    QDir::setCurrent(usable ? saved : fallback_directory(saved));
}

} // namespace

void Ostrel::restore_settings()
{
    QSettings settings;
    settings.beginGroup(u"/ostrelgui"_s);
    settings.beginGroup(u"/ostrel"_s);

    if (settings.contains(u"/x"_s) && settings.contains(u"/y"_s)) {
        const QPoint position(read_setting(settings, u"/x"_s, 0), read_setting(settings, u"/y"_s, 0));
        const bool far_away = position.x() > largest_position || position.y() > largest_position;
        move(far_away ? QPoint(0, 0) : position);
    }
    if (settings.contains(u"/width"_s) && settings.contains(u"/height"_s))
        resize(read_setting(settings, u"/width"_s, 0), read_setting(settings, u"/height"_s, 0));

    const bool keep =
        CLOptions::instance()->batch_mode() || !read_setting(settings, u"/restoreWorkingDir"_s, false);
    restore_working_directory(keep, read_setting(settings, u"/workingdir"_s, QString()));

    const QString component_directory = read_setting(settings, u"/comppath"_s, QString());
    if (!component_directory.isEmpty())
        ComponentTool::sLastPath = component_directory;

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
    settings.setValue(u"/comppath"_s, ComponentTool::sLastPath);

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
