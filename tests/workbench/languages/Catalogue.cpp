// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

#include "Catalogue.h"

#include <QCoreApplication>
#include <QFile>
#include <QTextDocumentFragment>
#include <QXmlStreamReader>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

struct QtText
{
    const char* context;
    const char* source;
};

/** The texts of Qt's own widgets in the windows that are visited. */
constexpr QtText qt_texts[] = {
    {"QPlatformTheme", "OK"},
    {"QPlatformTheme", "Cancel"},
    {"QPlatformTheme", "Close"},
    {"QDockWidget", "Float"},
    {"QDockWidget", "Undocks and re-attaches the dock widget"},
    {"QDockWidget", "Close"},
    {"QDockWidget", "Closes the dock widget"},
    {"CloseButton", "Close Tab"},
    {"QTabBar", "Scroll Left"},
    {"QTabBar", "Scroll Right"},
    {"QFileDialog", "Look in:"},
    {"QFileDialog", "Back"},
    {"QFileDialog", "Go back"},
    {"QFileDialog", "Forward"},
    {"QFileDialog", "Go forward"},
    {"QFileDialog", "Parent Directory"},
    {"QFileDialog", "Go to the parent directory"},
    {"QFileDialog", "Create New Folder"},
    {"QFileDialog", "Create a New Folder"},
    {"QFileDialog", "List View"},
    {"QFileDialog", "Change to list view mode"},
    {"QFileDialog", "Detail View"},
    {"QFileDialog", "Change to detail view mode"},
    {"QFileDialog", "Sidebar"},
    {"QFileDialog", "List of places and bookmarks"},
    {"QFileDialog", "Files"},
    {"QFileDialog", "&File name:"},
    {"QFileDialog", "File &name:"},
    {"QFileDialog", "Files of type:"},
    {"QFileDialog", "Directory:"},
    {"QFileDialog", "&Open"},
    {"QFileDialog", "&Save"},
    {"QFileDialog", "&Choose"},
    {"QFileDialog", "Remove"},
    {"QFileDialog", "&Rename"},
    {"QFileDialog", "&Delete"},
    {"QFileDialog", "Show &hidden files"},
    {"QFileDialog", "&New Folder"},
    {"QFileDialog", "New Folder"},
    {"QFileDialog", "My Computer"},
    {"QFileSystemModel", "Computer"},
    {"QFileSystemModel", "Name"},
    {"QFileSystemModel", "Size"},
    {"QFileSystemModel", "Type"},
    {"QFileSystemModel", "Date Modified"},
};

/** Texts that are the same in every language, with the reason. */
struct SameText
{
    const char* text;
    const char* reason;
};

constexpr SameText same_texts[] = {
    {"Fennar", "the name of the product"},
    {"Python", "the name of the language"},
    {"Switch to Fennar command mode (Alt+C)", "a fixed tool tip of the shell, which no translation reaches"},
    {"Switch to Python statement mode (Alt+P)",
     "a fixed tool tip of the shell, which no translation reaches"},
};

bool has_letters(const QString& text)
{
    return std::any_of(text.begin(), text.end(), [](QChar c) { return c.isLetter(); });
}

} // namespace

Catalogue::Catalogue(const QString& language)
{
    for (const auto* name : {"translations/ostrelgui", "workbench/translations/fennar"}) {
        QFile file(QStringLiteral(OSTREL_SOURCE_DIR) + u"/%1_%2.ts"_s.arg(QLatin1StringView(name), language));
        if (!file.open(QIODevice::ReadOnly)) {
            mErrors << file.fileName() + u": "_s + file.errorString();
            continue;
        }
        QXmlStreamReader xml(&file);
        QString source;
        while (!xml.atEnd()) {
            if (xml.readNext() != QXmlStreamReader::StartElement)
                continue;
            if (xml.name() == u"source")
                source = xml.readElementText();
            else if (xml.name() == u"translation")
                add(source, xml.readElementText());
        }
        if (xml.hasError())
            mErrors << file.fileName() + u": "_s + xml.errorString();
    }
    for (const QtText& text : qt_texts) {
        const QString translation = QCoreApplication::translate(text.context, text.source);
        add(QString::fromUtf8(text.source), translation);
    }
}

QString Catalogue::plain(const QString& text)
{
    static const QRegularExpression mnemonic(u"\\s*\\(&\\w\\)"_s);
    QString result = text;
    result.remove(mnemonic).remove(u'&').remove(u"..."_s).remove(u'\u2026');
    return result.simplified();
}

void Catalogue::add(const QString& source, const QString& translation)
{
    const QStringList sources = source.split(u'\n');
    const QStringList translations = translation.split(u'\n');
    for (const QString& line : sources) {
        if (!line.contains(u'%') && !translations.contains(line) && has_letters(line))
            mSources << plain(line);
    }
    for (const QString& line : translations) {
        if (!line.contains(u'%')) {
            mTranslations << plain(line);
            continue;
        }
        static const QRegularExpression placeholder(u"%\\d"_s);
        QString expression;
        for (const QString& part : plain(line).split(placeholder)) {
            if (!expression.isEmpty() || part.isEmpty())
                expression += u"(.*)"_s;
            expression += QRegularExpression::escape(part);
        }
        mPatterns.append({line, QRegularExpression(QRegularExpression::anchoredPattern(expression))});
    }
    // A text that is another one's translation is no leftover.
    mSources.removeIf([this](const QString& text) { return mTranslations.contains(text); });
}

QString Catalogue::judge(const QString& text) const
{
    const QString lines = text.startsWith(u'<') ? QTextDocumentFragment::fromHtml(text).toPlainText() : text;
    for (const QString& line : lines.split(u'\n')) {
        if (const QString wrong = judge_line(plain(line)); !wrong.isEmpty())
            return wrong;
    }
    return {};
}

QString Catalogue::judge_line(const QString& line) const
{
    if (line.size() < 2 || !has_letters(line) || mTranslations.contains(line))
        return {};
    if (mSources.contains(line))
        return u"the source text is shown"_s;
    if (std::any_of(std::begin(same_texts), std::end(same_texts),
                    [&line](const SameText& same) { return line == QLatin1StringView(same.text); }))
        return {};
    for (const Pattern& pattern : mPatterns) {
        const QRegularExpressionMatch match = pattern.expression.match(line);
        if (!match.hasMatch())
            continue;
        const QStringList parts = match.capturedTexts().mid(1);
        const bool leftover = std::any_of(parts.begin(), parts.end(),
                                          [this](const QString& part) { return mSources.contains(part); });
        return leftover ? u"a part of it is a source text"_s : QString();
    }
    return u"no translation reads so"_s;
}
