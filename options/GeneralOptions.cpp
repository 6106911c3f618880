// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

#include "options/GeneralOptions.h"

#include "console/CommandWindow.h"
#include "files/OstrelFileMenu.h"
#include "files/modal_dialogs.h"
#include "frame/Alive.h"
#include "frame/Ostrel.h"
#include "frame/read_setting.h"
#include "frame/settings_keys.h"
#include "host/ostrelfw/Broker.h"
#include "host/ostrelfw/Mediator.h"
#include "journal/JournalEditor.h"
#include "ui_QtGeneralOptions.h"

#include <QSettings>

using namespace Qt::StringLiterals;

namespace {

CommandWindow* console()
{
    return Ostrel::instance() ? Ostrel::instance()->command_line() : nullptr;
}

} // namespace

GeneralOptions::GeneralOptions(QWidget* parent)
    : QWidget(parent), mForm(std::make_unique<Ui::QtGeneralOptions>())
{
    mForm->setupUi(this);
    QSettings settings;
    mForm->cbUsePaths->setChecked(read_setting(settings, settings_keys::use_python_paths, false));
    mForm->lePythonPaths->setText(read_setting(settings, settings_keys::python_paths, QString()));
    connect(mForm->tbPythonPaths, &QToolButton::clicked, this, &GeneralOptions::choosePythonPath);
}

GeneralOptions::~GeneralOptions() = default;

void GeneralOptions::saveClicked()
{
    OstrelFileMenu::set_save_prompt(mForm->mUsingDataPrompt->isChecked());
    JournalEditor::set_save_prompt(mForm->mUsingJournalPrompt->isChecked());
    // All of it is read before the framework is told, and stored after that, whether the page lives on or
    // not.
    const bool splash = mForm->mUsingSplash->isChecked();
    const bool restores = mForm->cbRestoreWorkingDir->isChecked();
    const bool uses_paths = mForm->cbUsePaths->isChecked();
    const QString paths = mForm->lePythonPaths->text();
    Broker::instance()->set_change_dir_on_playback(mForm->mUsingChangeDir->isChecked());
    QSettings settings;
    settings.setValue(settings_keys::splash, splash);
    settings.setValue(settings_keys::restore_working_directory, restores);
    settings.setValue(settings_keys::use_python_paths, uses_paths);
    settings.setValue(settings_keys::python_paths, paths);
}

void GeneralOptions::refreshClicked()
{
    const Alive alive(this);
    mForm->mUsingDataPrompt->setChecked(OstrelFileMenu::do_save_prompt());
    mForm->mUsingJournalPrompt->setChecked(JournalEditor::do_save_prompt());
    const bool changes_directory = Broker::instance()->change_dir_on_playback();
    if (!alive)
        return;
    mForm->mUsingChangeDir->setChecked(changes_directory);
    if (const CommandWindow* window = console())
        mForm->mFocusFollowsCursor->setChecked(window->get_focus_follows_cursor());
    QSettings settings;
    mForm->mUsingSplash->setChecked(read_setting(settings, settings_keys::splash, true));
    mForm->cbRestoreWorkingDir->setChecked(
        read_setting(settings, settings_keys::restore_working_directory, false));
}

void GeneralOptions::on_mFocusFollowsCursor_toggled(bool on)
{
    if (CommandWindow* window = console())
        window->set_focus_follows_cursor(on);
}

void GeneralOptions::choosePythonPath()
{
    const Alive alive(this);
    const QString directory = ask_directory(this, QString(), QString());
    if (!directory.isEmpty() && alive)
        mForm->lePythonPaths->setText(directory);
}
