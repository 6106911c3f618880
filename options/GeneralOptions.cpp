// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

#include "options/GeneralOptions.h"

#include "console/CommandWindow.h"
#include "files/OstrelFileMenu.h"
#include "frame/Ostrel.h"
#include "frame/read_setting.h"
#include "host/ostrelfw/Broker.h"
#include "host/ostrelfw/Mediator.h"
#include "journal/JournalEditor.h"
#include "ui_QtGeneralOptions.h"

#include <QFileDialog>
#include <QSettings>

using namespace Qt::StringLiterals;

namespace {

const auto group = u"/ostrelgui/ostrel"_s;

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
    settings.beginGroup(group);
    mForm->cbUsePaths->setChecked(read_setting(settings, u"/usepythonpaths"_s, false));
    mForm->lePythonPaths->setText(read_setting(settings, u"/pythonpaths"_s, QString()));
    settings.endGroup();
    connect(mForm->tbPythonPaths, &QToolButton::clicked, this, &GeneralOptions::choosePythonPath);
}

GeneralOptions::~GeneralOptions() = default;

void GeneralOptions::saveClicked()
{
    OstrelFileMenu::set_save_prompt(mForm->mUsingDataPrompt->isChecked());
    JournalEditor::set_save_prompt(mForm->mUsingJournalPrompt->isChecked());
    Broker::instance()->set_change_dir_on_playback(mForm->mUsingChangeDir->isChecked());
    QSettings settings;
    settings.beginGroup(group);
    settings.setValue(u"/splash"_s, mForm->mUsingSplash->isChecked());
    settings.setValue(u"/restoreWorkingDir"_s, mForm->cbRestoreWorkingDir->isChecked());
    settings.setValue(u"/usepythonpaths"_s, mForm->cbUsePaths->isChecked());
    settings.setValue(u"/pythonpaths"_s, mForm->lePythonPaths->text());
    settings.endGroup();
}

void GeneralOptions::refreshClicked()
{
    mForm->mUsingDataPrompt->setChecked(OstrelFileMenu::do_save_prompt());
    mForm->mUsingJournalPrompt->setChecked(JournalEditor::do_save_prompt());
    mForm->mUsingChangeDir->setChecked(Broker::instance()->change_dir_on_playback());
    if (const CommandWindow* window = console())
        mForm->mFocusFollowsCursor->setChecked(window->get_focus_follows_cursor());
    QSettings settings;
    settings.beginGroup(group);
    mForm->mUsingSplash->setChecked(read_setting(settings, u"/splash"_s, true));
    mForm->cbRestoreWorkingDir->setChecked(read_setting(settings, u"/restoreWorkingDir"_s, false));
    settings.endGroup();
}

void GeneralOptions::on_mFocusFollowsCursor_toggled(bool on)
{
    if (CommandWindow* window = console())
        window->set_focus_follows_cursor(on);
}

void GeneralOptions::choosePythonPath()
{
    const QString directory =
        QFileDialog::getExistingDirectory(this, QString(), QString(), QFileDialog::ShowDirsOnly);
    if (!directory.isEmpty())
        mForm->lePythonPaths->setText(directory);
}
