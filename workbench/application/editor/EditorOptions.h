// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

#pragma once

#include <QWidget>

#include <memory>

namespace Ui {
class QtEditorOptions;
}

namespace fennar {

/** The page "Journal Editor" of the options dialog: what the editor does with what it knows of languages. */
class EditorOptions : public QWidget
{
    Q_OBJECT

public:
    EditorOptions();
    ~EditorOptions() override;

    /** Whether words are colored; they are at first. */
    static bool colors();
    /** Whether Tab completes; it does at first. */
    static bool completes();

    /** Loads the controls from the settings. */
    void refresh();
    /** Stores the controls. */
    void save();

private:
    const std::unique_ptr<Ui::QtEditorOptions> mForm;
};

} // namespace fennar
