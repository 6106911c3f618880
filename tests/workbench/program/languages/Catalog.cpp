// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

#include "Catalog.h"

#include <QCoreApplication>
#include <QDirIterator>
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
    {"QFileDialog", "Show "},
    {"QFileDialog", "Directories"},
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
    {"OK", "the same in German"},
    {"Computer", "the same in German"},
    {"mm", "a unit"},
    {"brick1", "the name of a solid, as the command that made it is called"},
    {"STEP", "the name of a file format"},
    {"IGES", "the name of a file format"},
    {"BREP", "the name of a file format"},
    {"STL", "the name of a file format"},
    {"MSH", "the name of a file format"},
    {"VTK", "the name of a file format"},
    {"OBJ", "the name of a file format"},
    {"all", "a word of the commands, which a form has where nothing is given"},
    {"Switch to Fennar command mode (Alt+C)", "a fixed tool tip of the shell, which no translation reaches"},
    {"Switch to Python statement mode (Alt+P)",
     "a fixed tool tip of the shell, which no translation reaches"},
};

/** How many letters a translation with placeholders needs to say something by itself. */
constexpr qsizetype least_letters = 4;

/** How many letters @p text has; a Chinese one counts as two. */
qsizetype letters_in(const QString& text)
{
    qsizetype letters = 0;
    for (const QChar c : text)
        letters += !c.isLetter() ? 0 : c.script() == QChar::Script_Han ? 2 : 1;
    return letters;
}

bool has_letters(const QString& text)
{
    return std::any_of(text.begin(), text.end(), [](QChar c) { return c.isLetter(); });
}

/** The text of the translation that @p xml is at, or its texts for several numbers. */
QStringList read_forms(QXmlStreamReader& xml)
{
    QStringList forms;
    QString text;
    while (!xml.atEnd() && xml.readNext() != QXmlStreamReader::EndElement) {
        if (xml.isStartElement())
            forms << xml.readElementText();
        else
            text += xml.text();
    }
    return forms.isEmpty() ? QStringList{text} : forms;
}

} // namespace

QStringList catalog_files(const QString& language)
{
    const QString root = QStringLiteral(OSTREL_SOURCE_DIR);
    QStringList files{root + u"/translations/ostrelgui_%1.ts"_s.arg(language),
                      root + u"/workbench/translations/fennar_%1.ts"_s.arg(language)};
    QDirIterator components(root + u"/workbench/components"_s, {u"*_%1.ts"_s.arg(language)}, QDir::Files,
                            QDirIterator::Subdirectories);
    while (components.hasNext())
        files << components.next();
    return files;
}

Catalog::Catalog(const QString& language)
{
    for (const QString& name : catalog_files(language)) {
        QFile file(name);
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
                for (const QString& form : read_forms(xml))
                    add(source, form);
        }
        if (xml.hasError())
            mErrors << file.fileName() + u": "_s + xml.errorString();
    }
    for (const QtText& text : qt_texts) {
        const QString source = QString::fromUtf8(text.source);
        // One that this version of Qt does not know, or does not translate, accounts for nothing.
        if (const QString translation = QCoreApplication::translate(text.context, text.source);
            translation != source)
            add(source, translation);
    }
}

QString Catalog::plain(const QString& text)
{
    // Qt leaves the letter of a Chinese mnemonic in tool tips, as users there are used to.
    static const QRegularExpression mnemonic(u"\\s*\\(&?[A-Z]\\)$"_s);
    static const QRegularExpression file_pattern(u"\\s*\\([^)]*\\*[^)]*\\)"_s);
    static const QRegularExpression dots(u"(\\.\\.\\.|\u2026)$"_s);
    static const QRegularExpression change_mark(u"^\\* "_s);
    QString result = text;
    result.remove(dots).remove(mnemonic).remove(file_pattern).remove(change_mark).remove(u'&');
    return result.simplified();
}

void Catalog::add(const QString& source, const QString& translation)
{
    static const QRegularExpression breaks(u"\n|;;"_s);
    const QStringList sources = source.split(breaks);
    const QStringList translations = translation.split(breaks);
    for (const QString& line : sources) {
        if (!line.contains(u'%') && !translations.contains(line) && has_letters(line))
            mSources << plain(line);
    }
    for (QString line : translations) {
        // Texts that Qt and the shell put others behind, or in front of.
        if (line.endsWith(u' '))
            line += u"%1"_s;
        if (line.startsWith(u' ') && line.size() > 1)
            line.prepend(u"%1"_s);
        if (!line.contains(u'%')) {
            mTranslations << plain(line);
            continue;
        }
        static const QRegularExpression placeholder(u"%[\\dn]"_s);
        QString expression;
        bool first = true;
        for (const QString& part : plain(line).split(placeholder)) {
            expression += first ? QString() : u"(.*)"_s;
            expression += QRegularExpression::escape(part);
            first = false;
        }
        // A placeholder at an end may stand for nothing where the rest says enough.
        if (letters_in(line) >= least_letters) {
            if (expression.startsWith(u"(.*)\\ "_s))
                expression.replace(0, 6, u"(?:(.*)\\ )?"_s);
            if (expression.endsWith(u"\\ (.*)"_s))
                expression.replace(expression.size() - 6, 6, u"(?:\\ (.*))?"_s);
        }
        mPatterns.append({line, QRegularExpression(QRegularExpression::anchoredPattern(expression))});
    }
    // A text that is another one's translation is no leftover.
    mSources.removeIf([this](const QString& text) { return mTranslations.contains(text); });
}

QString Catalog::judge(const QString& text) const
{
    const QString lines = text.startsWith(u'<') ? QTextDocumentFragment::fromHtml(text).toPlainText() : text;
    for (const QString& line : lines.split(u'\n')) {
        if (const QString wrong = judge_line(plain(line)); !wrong.isEmpty())
            return wrong;
    }
    return {};
}

QString Catalog::judge_line(const QString& line) const
{
    if (line.size() < 2 || !has_letters(line) || mTranslations.contains(line))
        return {};
    if (mSources.contains(line))
        return u"the source text is shown"_s;
    if (std::any_of(std::begin(same_texts), std::end(same_texts),
                    [&line](const SameText& same) { return line == QLatin1StringView(same.text); }))
        return {};
    // Cut in the middle where there is little room.
    if (const qsizetype cut = line.indexOf(u'\u2026'); cut > 0) {
        const QString begin = line.first(cut);
        const QString end = line.sliced(cut + 1);
        const bool cut_translation =
            std::any_of(mTranslations.begin(), mTranslations.end(), [&](const QString& translation) {
                return translation.startsWith(begin) && translation.endsWith(end);
            });
        if (cut_translation)
            return {};
    }
    for (const Pattern& pattern : mPatterns) {
        const QRegularExpressionMatch match = pattern.expression.match(line);
        if (!match.hasMatch())
            continue;
        const QStringList parts = match.capturedTexts().mid(1);
        // One that holds hardly more than placeholders fits nearly everything; what it joins counts.
        const bool says_little = letters_in(pattern.translation) < least_letters;
        const auto is_wrong = [&](const QString& part) {
            return mSources.contains(part.trimmed()) ||
                   (says_little && (part.size() == line.size() || !judge_line(part.trimmed()).isEmpty()));
        };
        if (std::none_of(parts.begin(), parts.end(), is_wrong))
            return {};
    }
    return u"no translation reads so"_s;
}
