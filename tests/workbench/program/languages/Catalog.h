// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

#pragma once

#include <QList>
#include <QRegularExpression>
#include <QSet>
#include <QString>
#include <QStringList>

/** The translation files of the tree for @p language, those of its components included. */
QStringList catalog_files(const QString& language);

/** What the translation files of one language say, to judge texts by that are read off the screen. */
class Catalog
{
public:
    /** Reads the files of the tree for @p language and adds the texts of Qt's that the program shows. */
    explicit Catalog(const QString& language);

    /** What went wrong while reading; empty if nothing did. */
    QStringList errors() const { return mErrors; }
    qsizetype size() const { return mTranslations.size() + mPatterns.size(); }

    /** What is wrong with @p text, which may be rich and of several lines; empty if it is translated. */
    QString judge(const QString& text) const;

    /** @p text as it is compared: without mnemonic, ellipsis and markup. */
    static QString plain(const QString& text);

private:
    struct Pattern
    {
        QString translation;
        QRegularExpression expression;
    };

    void add(const QString& source, const QString& translation);
    QString judge_line(const QString& line) const;

    QStringList mErrors;
    /** Sources whose translations differ from them. */
    QSet<QString> mSources;
    QSet<QString> mTranslations;
    /** Translations with placeholders. */
    QList<Pattern> mPatterns;
};
