// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

#pragma once

#include <QLocale>
#include <QString>
#include <QStringList>

#include <memory>
#include <vector>

class QTranslator;

namespace fennar {

/**
 * What users read in their own language: installs the translations of Qt, of the shell, of the workbench and
 * of its components in the application for as long as it lives.
 *
 * Those of components are there whether these are loaded or not, since their commands are shown either way.
 * All of the language are taken that lie beside the workbench's. They are asked last: what the others have
 * translated no component changes. Of two components the first by name is asked first.
 *
 * To be made before the main window, since the shell takes its texts as it makes its widgets, and after the
 * application object. The shell itself installs nothing: which language is spoken is the host's decision.
 */
class Translations
{
public:
    /**
     * @param languages  the user's languages as names of locales, as "de-AT" or "zh-Hans-CN", the dearest
     * first. The first of them for which there is a translation of the workbench counts; English, the
     * language of the sources, counts as one that needs none. Empty or without any such language: nothing is
     * installed, all stays English.
     * @param directory  where the translations of the workbench and its components are.
     */
    explicit Translations(const QStringList& languages = QLocale::system().uiLanguages(),
                          const QString& directory = workbench_directory());
    ~Translations();
    Q_DISABLE_COPY_MOVE(Translations)

    /** The language chosen, as "de" or "zh_CN"; empty if the texts stay English. */
    QString language() const { return mLanguage; }
    /** The translation files that were not found or cannot be read, though the language has been chosen. */
    QStringList missing() const { return mMissing; }

    /** The directory of the shell's translations; empty if there is none. */
    static QString shell_directory();
    /** The directory of the translations of the workbench and its components; empty if there is none. */
    static QString workbench_directory();

private:
    void install(const QString& directory, const QString& name);

    QString mLanguage;
    QStringList mMissing;
    std::vector<std::unique_ptr<QTranslator>> mTranslators;
};

} // namespace fennar
