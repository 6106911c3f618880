// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

#pragma once

#include <QTabWidget>
#include <QWidget>

#include <memory>

class LayoutOptionsModel;
namespace Ui {
class QtLayoutOptions;
}

/**
 * The page "Layout" of the options dialog: the font of console and journal editor, the toolbars and docks
 * that are shown, and where the tabs of stacked docks are.
 *
 * The font acts on save; the list and the tab position act at once. The tab position is stored on save, and
 * not applied at the next start; see docs/surprises.md. OstrelGUIOptions makes the page and owns it. GUI
 * thread only.
 */
class LayoutOptions : public QWidget
{
    Q_OBJECT

public:
    explicit LayoutOptions(QWidget* parent);
    ~LayoutOptions() override;

public slots:
    /** Gives the sample's font to console and journal editor, and stores the tab position. */
    void saveClicked();
    /** Loads the controls from the main window and the settings. */
    void refreshClicked();
    /** Offers the sizes of @p family and shows the sample in it. */
    void changeFontFamily(const QString& family);
    /** Shows the sample in @p size, a decimal number of points. */
    void changeFontSize(const QString& size);
    void on_rbTabBottom_clicked();
    void on_rbTabTop_clicked();
    void on_rbTabLeft_clicked();
    void on_rbTabRight_clicked();

private:
    void update_font_sizes(const QString& family);
    void update_tool_dock_list();
    void select_family(const QString& family);
    void select_size(int points);
    void set_tab_position(QTabWidget::TabPosition position, const QString& word);

    const std::unique_ptr<Ui::QtLayoutOptions> mForm;
    LayoutOptionsModel* mModel = nullptr;
    /** "north", "south", "east" or "west", or whatever the settings hold; null until the first refresh. */
    QString mTabPosition;
};
