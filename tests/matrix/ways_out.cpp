// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

#include "ways_out.h"

#include "console/CommandWidget.h"
#include "console/CommandWindow.h"
#include "files/FileLineEdit.h"
#include "files/OstrelFileMenu.h"
#include "files/OstrelMessageBox.h"
#include "frame/Ostrel.h"
#include "frame/OstrelEventFilter.h"
#include "journal/JournalEditor.h"
#include "menus/HelpAboutOstrel.h"
#include "menus/OstrelHelpMenu.h"
#include "menus/OstrelToolsMenu.h"
#include "menus/OstrelViewMenu.h"
#include "menus/PyAction.h"
#include "options/OptionsPanel.h"

#include <QDirIterator>
#include <QFile>
#include <QMetaMethod>
#include <QRegularExpression>

using namespace Qt::StringLiterals;

namespace {

const QString root = QStringLiteral(SOURCE_TREE "/");

QString content(const QString& path)
{
    QFile file(root + path);
    if (!file.open(QIODevice::ReadOnly))
        qFatal("cannot read %s", qPrintable(path));
    return QString::fromUtf8(file.readAll());
}

QStringList found_in(const QString& text, const QString& pattern)
{
    QStringList found;
    static QMap<QString, QRegularExpression> expressions;
    auto at = expressions.find(pattern);
    if (at == expressions.end())
        at = expressions.insert(pattern, QRegularExpression(pattern));
    for (auto matches = at->globalMatch(text); matches.hasNext();)
        found << matches.next().captured(1);
    return found;
}

// Paths relative to the tree, sorted.
QStringList shell_sources(const QString& ending)
{
    QStringList sources;
    for (const char* folder : {"frame", "console", "files", "journal", "menus", "options"}) {
        QDirIterator files(root + QString::fromLatin1(folder), {u'*' + ending}, QDir::Files,
                           QDirIterator::Subdirectories);
        while (files.hasNext())
            sources << files.next().mid(root.size());
    }
    sources.sort();
    return sources;
}

const QMetaObject* const known_classes[] = {
    &Ostrel::staticMetaObject,
    &OstrelEventFilter::staticMetaObject,
    &CommandWindow::staticMetaObject,
    &CommandWidget::staticMetaObject,
    &OstrelFileMenu::staticMetaObject,
    &FileLineEdit::staticMetaObject,
    &MessageSettingBox::staticMetaObject,
    &OstrelMessageBox::staticMetaObject,
    &JournalEditor::staticMetaObject,
    &OstrelViewMenu::staticMetaObject,
    &OstrelToolsMenu::staticMetaObject,
    &OstrelHelpMenu::staticMetaObject,
    &HelpAboutOstrel::staticMetaObject,
    &PyAction::staticMetaObject,
    &OptionsPanel::staticMetaObject,
};

// Those that are no QObjects have no signals.
const QStringList without_signals{u"MainFrame"_s, u"OpenSaveHandler"_s, u"ImportExportHandler"_s};

} // namespace

QStringList exported_classes()
{
    QStringList classes;
    for (const QString& header : shell_sources(u".h"_s))
        classes << found_in(content(header), uR"(class OSTRELGUI_EXPORT (\w+))"_s);
    return classes;
}

QStringList signals_of_exported_classes()
{
    QStringList found;
    for (const QString& name : exported_classes()) {
        if (without_signals.contains(name))
            continue;
        const auto* const known =
            std::find_if(std::begin(known_classes), std::end(known_classes),
                         [&](const QMetaObject* meta) { return name == QLatin1String(meta->className()); });
        if (known == std::end(known_classes)) {
            found << name + u'?';
            continue;
        }
        for (int i = (*known)->methodOffset(); i < (*known)->methodCount(); ++i) {
            const QMetaMethod method = (*known)->method(i);
            if (method.methodType() == QMetaMethod::Signal)
                found << name + u"::"_s + QString::fromLatin1(method.name());
        }
    }
    found.removeDuplicates();
    return found;
}

QStringList signals_of_base_classes()
{
    return {u"QPlainTextEdit::cursorPositionChanged"_s};
}

QStringList virtuals_of_handlers()
{
    // Of these the shell deletes formats alone.
    QStringList found{u"ImportExportHandler::~ImportExportHandler"_s};
    for (const QString& header : {u"files/OpenSaveHandler.h"_s, u"files/ImportExportHandler.h"_s,
                                  u"host/ostrelfw/ComponentTracker.h"_s}) {
        const QString name = header.section(u'/', -1).section(u'.', 0, 0);
        for (const QString& function : found_in(content(header), uR"(virtual \w[\w:&* ]* \*?(\w+)\()"_s))
            found << name + u"::"_s + function;
    }
    return found;
}

QStringList host_calls()
{
    QStringList found =
        found_in(content(u"tests/hostdouble/HostDouble.cpp"_s), uR"re((?:record|Call call)\("([^"(]+)")re"_s);
    // The panels name themselves ahead of the call.
    const QString panels = content(u"tests/hostdouble/panels.cpp"_s);
    for (const QString& panel : {u"CommandButtonPanel"_s, u"BreadcrumbsPanel"_s}) {
        const QStringList calls = found_in(panels, uR"re(record\("%1", u"(\w+))re"_s.arg(panel));
        for (const QString& call : calls) {
            if (call != panel)
                found << panel + u"::"_s + call;
        }
    }
    found.removeDuplicates();
    return found;
}

QMap<QString, int> places_that_wait()
{
    // These two wait for those that call them.
    const QStringList helpers{u"files/modal_dialogs.cpp"_s, u"files/OstrelMessageBox.cpp"_s};
    QMap<QString, int> places;
    for (const QString& source : shell_sources(u".cpp"_s)) {
        if (helpers.contains(source))
            continue;
        const auto found = found_in(
            content(source),
            uR"(((?:\.|->|QDialog::)exec|ask_open_files?|ask_save_file|ask_directory|show_message|OstrelMessageBox::\w+)\()"_s);
        if (!found.isEmpty())
            places[source] = int(found.size());
    }
    return places;
}

QMultiMap<QString, QString> waits_for_the_user()
{
    return {
        {u"frame/Ostrel.cpp"_s, u"context menu of the window, QMenu over nothing"_s},
        {u"console/CommandWidget.cpp"_s, u"context menu of a page, QMenu over CommandWidget"_s},
        {u"files/FileLineEdit.cpp"_s, u"field for a file, QFileDialog \"Save As\" over FileLineEdit"_s},
        {u"files/OstrelFileMenu.cpp"_s, u"new, OstrelMessageBox \"Ostrel\" over Ostrel"_s},
        {u"files/OstrelFileMenu.cpp"_s, u"open, QFileDialog \"Open\" over Ostrel"_s},
        {u"files/OstrelFileMenu.cpp"_s, u"save as, QFileDialog \"Save As\" over Ostrel"_s},
        {u"files/OstrelFileMenu.cpp"_s, u"import, QFileDialog \"Import File\" over Ostrel"_s},
        {u"files/OstrelFileMenu.cpp"_s, u"import of one kind, QFileDialog \"Import File\" over Ostrel"_s},
        {u"files/OstrelFileMenu.cpp"_s, u"export, QFileDialog \"Export File\" over Ostrel"_s},
        {u"files/RecentFiles.cpp"_s, u"recent file that is gone, QMessageBox \"File Error\" over Ostrel"_s},
        {u"journal/JournalDocument.cpp"_s, u"context menu of a journal, QMenu over JournalDocument"_s},
        {u"journal/JournalEditor.cpp"_s, u"find, JournalFindDialog \"Find in Journal File\" over nothing"_s},
        {u"journal/JournalEditor.cpp"_s, u"journal opened, QFileDialog \"Open\" over JournalEditor"_s},
        {u"journal/JournalEditor.cpp"_s,
         u"journal that is gone, QMessageBox \"File Error\" over JournalEditor"_s},
        {u"journal/journal_files.cpp"_s,
         u"journal closed, saved, OstrelMessageBox \"Journal Editor\" over JournalEditor"_s},
        {u"journal/journal_files.cpp"_s,
         u"journal that cannot be saved, QMessageBox \"File Error\" over JournalEditor"_s},
        {u"journal/journal_files.cpp"_s,
         u"journal closed, saved, QFileDialog \"Save As\" over JournalEditor"_s},
        {u"journal/journal_files.cpp"_s,
         u"journal saved as a file that exists, QMessageBox \"Save As\" over JournalEditor"_s},
        {u"menus/OstrelHelpMenu.cpp"_s, u"about, HelpAboutOstrel \"About\" over Ostrel"_s},
        {u"menus/OstrelToolsMenu.cpp"_s, u"options saved, OptionsPanel \"Options\" over Ostrel"_s},
        {u"options/OptionsPanel.cpp"_s, u"own options, OptionsPanel \"Options\" over Ostrel"_s},
        {u"options/ComponentTool.cpp"_s, u"plugin tool, QFileDialog \"Select Folder\" over ComponentTool"_s},
        {u"options/GeneralOptions.cpp"_s,
         u"folder of the options, QFileDialog \"Find Directory\" over GeneralOptions"_s},
    };
}
