// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

#include "workbench/application/Translations.h"

#include <QCoreApplication>
#include <QDir>
#include <QFileInfo>
#include <QLibraryInfo>
#include <QTranslator>

using namespace Qt::StringLiterals;

namespace fennar {

namespace {

/**
 * The directory of one of @p names below the prefix that the program is installed in, or below the folder it
 * was built in: the first one on the way up from the program that has it. Where that is depends on the
 * system's layout of its folders.
 */
QString find_directory(const QStringList& names)
{
    QDir folder(QCoreApplication::applicationDirPath());
    do {
        for (const QString& name : names)
            if (folder.exists(name))
                return QDir::cleanPath(folder.filePath(name));
    } while (folder.cdUp());
    return {};
}

/** How files name @p language in their names; empty if no file could be for it. */
QString name_in_files(const QString& language)
{
    const QLocale locale(language);
    switch (locale.language()) {
    case QLocale::C:
        return {};
    // Readers of the traditional script are not helped by the simplified one.
    case QLocale::Chinese:
        return locale.script() == QLocale::SimplifiedChineseScript ? u"zh_CN"_s : QString();
    default:
        return QLocale::languageToCode(locale.language());
    }
}

} // namespace

Translations::Translations(const QStringList& languages, const QString& directory)
{
    for (const QString& language : languages) {
        const QString name = name_in_files(language);
        if (name == u"en")
            return;
        if (name.isEmpty() || !QFileInfo::exists(directory + u"/fennar_%1.qm"_s.arg(name)))
            continue;
        mLanguage = name;
        break;
    }
    if (mLanguage.isEmpty())
        return;
    // What is installed last is asked first.
    const QString own = u"fennar_%1.qm"_s.arg(mLanguage);
    const QStringList files =
        QDir(directory).entryList({u"*_%1.qm"_s.arg(mLanguage)}, QDir::Files, QDir::Name);
    for (auto file = files.rbegin(); file != files.rend(); ++file)
        if (*file != own)
            install(directory, *file);
    install(QLibraryInfo::path(QLibraryInfo::TranslationsPath), u"qtbase_%1.qm"_s.arg(mLanguage));
    install(shell_directory(), u"ostrelgui_%1.qm"_s.arg(mLanguage));
    install(directory, own);
}

Translations::~Translations()
{
    for (const auto& translator : mTranslators)
        QCoreApplication::removeTranslator(translator.get());
}

QString Translations::shell_directory()
{
    return find_directory({u"" FENNAR_SHELL_TRANSLATIONS ""_s, u"share/ostrelgui/translations"_s});
}

QString Translations::workbench_directory()
{
    return find_directory({u"" FENNAR_WORKBENCH_TRANSLATIONS ""_s, u"share/fennar/translations"_s});
}

void Translations::install(const QString& directory, const QString& name)
{
    const QString file = directory + u'/' + name;
    auto translator = std::make_unique<QTranslator>();
    if (!translator->load(file)) {
        mMissing << file;
        return;
    }
    QCoreApplication::installTranslator(translator.get());
    mTranslators.push_back(std::move(translator));
}

} // namespace fennar
