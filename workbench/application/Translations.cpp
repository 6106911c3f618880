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

Translations::Translations(const QStringList& languages)
{
    for (const QString& language : languages) {
        const QString name = name_in_files(language);
        if (name == u"en")
            return;
        if (name.isEmpty() || !QFileInfo::exists(workbench_directory() + u"/fennar_%1.qm"_s.arg(name)))
            continue;
        mLanguage = name;
        break;
    }
    if (mLanguage.isEmpty())
        return;
    install(u"qtbase"_s, QLibraryInfo::path(QLibraryInfo::TranslationsPath));
    install(u"ostrelgui"_s, shell_directory());
    install(u"fennar"_s, workbench_directory());
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

void Translations::install(const QString& catalogue, const QString& directory)
{
    const QString file = directory + u"/%1_%2.qm"_s.arg(catalogue, mLanguage);
    auto translator = std::make_unique<QTranslator>();
    if (!translator->load(file)) {
        mMissing << file;
        return;
    }
    QCoreApplication::installTranslator(translator.get());
    mTranslators.push_back(std::move(translator));
}

} // namespace fennar
