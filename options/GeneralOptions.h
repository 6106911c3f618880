// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

#pragma once

#include <QWidget>

#include <memory>

namespace Ui {
class QtGeneralOptions;
}

/**
 * The page "General" of the options dialog: prompts, playback, focus, startup, and paths for Python.
 *
 * It holds no value outside its controls. Focus follows cursor acts at once, the prompts and the playback
 * option on save, the rest at the next start. OstrelGUIOptions makes it and owns it. GUI thread only.
 */
class GeneralOptions : public QWidget
{
    Q_OBJECT

public:
    /** Reads the two settings of Python, which are not read again later. */
    explicit GeneralOptions(QWidget* parent);
    ~GeneralOptions() override;

public slots:
    /** Writes the controls back. */
    virtual void saveClicked();
    /** Loads the controls, but for those of Python: what was typed there stays. */
    virtual void refreshClicked();
    void on_mFocusFollowsCursor_toggled(bool on);
    /** Asks for a directory, which replaces the paths. */
    void choosePythonPath();

private:
    const std::unique_ptr<Ui::QtGeneralOptions> mForm;
};
