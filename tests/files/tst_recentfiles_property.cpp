// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

#include "files/RecentFiles.h"
#include "support/TestCase.h"
#include "support/dialogs.h"
#include "support/random_seed.h"

#include <QFile>
#include <QMenu>
#include <QRandomGenerator>
#include <QTemporaryDir>
#include <QTest>

#include <array>

using namespace Qt::StringLiterals;

namespace {

/** The rules of a list, on nothing but texts. */
struct Model
{
    bool imports = false;
    QStringList texts;
    QStringList above;
    QStringList below;

    QString file(const QString& text) const
    {
        if (!imports)
            return text;
        return text.split(text.contains(u'"') ? u'"' : u'\'').value(1);
    }

    void add(const QString& text)
    {
        texts.removeIf([&](const QString& known) { return file(known) == file(text); });
        texts.prepend(text);
        texts = texts.first(std::min<qsizetype>(texts.size(), 5));
    }

    QString shown(const QString& text) const
    {
        const QString name = file(text);
        const QChar separator = name.contains(u'/') ? u'/' : u'\\';
        const QStringList parts = name.split(separator);
        for (qsizetype count = 1; name.size() > 25 && count < parts.size(); ++count) {
            const QString end = separator + parts.last(count).join(separator);
            if (end.size() >= 26)
                return parts.first() + separator + u".."_s + end;
        }
        return name;
    }

    QStringList rows() const
    {
        QStringList rows = above;
        for (qsizetype i = 0; i < texts.size(); ++i)
            rows << u"&"_s + QString::number(i + 1) + u" "_s + shown(texts[i]);
        if (!texts.isEmpty() && !below.isEmpty())
            rows << u"---"_s;
        return rows + below;
    }
};

QStringList rows(const QMenu& menu)
{
    QStringList texts;
    for (const QAction* action : menu.actions())
        texts << (action->isSeparator() ? u"---"_s : action->text());
    return texts;
}

QStringList entries(const RecentFiles& recent)
{
    std::vector<QString> texts;
    recent.get_entries(texts);
    return {texts.begin(), texts.end()};
}

} // namespace

/** Random uses of a list beside a plain model. The seed is printed; OSTREL_TEST_SEED sets it. */
class TstRecentFilesProperty : public TestCase
{
    Q_OBJECT

private slots:
    void initTestCase();
    void list_follows_the_model_data();
    void list_follows_the_model();

private:
    QString any_text(bool imports);
    template <class Choices>
    auto pick(const Choices& choices)
    {
        return choices[static_cast<typename Choices::size_type>(mRandom.bounded(int(choices.size())))];
    }

    QRandomGenerator mRandom;
    QTemporaryDir mDirectory;
};

void TstRecentFilesProperty::initTestCase()
{
    mRandom.seed(random_seed());
    QVERIFY(mDirectory.isValid());
}

QString TstRecentFilesProperty::any_text(bool imports)
{
    static const std::array names{u"a"_s,          u"b c"_s,  u"d;e"_s, u"#&%1"_s,    u"клапан"_s,
                                  u"two\nlines"_s, u"f\\g"_s, u"h"_s,   u"part.mdl"_s};
    QString name = mDirectory.filePath(pick(names));
    if (mRandom.bounded(4) == 0)
        name = pick(std::array{QString(), u"C:\\Users\\me\\engine\\inlet.mdl"_s,
                               u"/a//b///c////d/////e//////f"_s, QString(mRandom.bounded(40), u'x')});
    if (!imports)
        return name;
    switch (mRandom.bounded(4)) {
    case 0:
        return u"import "_s + name;
    case 1:
        return u"import '"_s + name + u"' heal"_s;
    default:
        return u"import \""_s + name + u"\""_s;
    }
}

void TstRecentFilesProperty::list_follows_the_model_data()
{
    QTest::addColumn<bool>("imports");
    QTest::addColumn<int>("above");
    QTest::addColumn<int>("below");
    QTest::newRow("files between other actions") << false << 3 << 2;
    QTest::newRow("files on top") << false << 0 << 1;
    QTest::newRow("files alone") << false << 0 << 0;
    QTest::newRow("imports alone") << true << 0 << 0;
    QTest::newRow("imports at the end") << true << 2 << 0;
}

void TstRecentFilesProperty::list_follows_the_model()
{
    QFETCH(const bool, imports);
    QFETCH(const int, above);
    QFETCH(const int, below);
    QMenu menu;
    Model model;
    model.imports = imports;
    for (int i = 0; i < above; ++i)
        model.above << u"above %1"_s.arg(i);
    for (int i = 0; i < below; ++i)
        model.below << u"below %1"_s.arg(i);
    for (const QString& text : model.above + model.below)
        menu.addAction(text);
    RecentFiles recent(&menu, above, imports);
    QStringList told;
    connect(&recent, &RecentFiles::recent_file_selected, &recent, [&](const QString& text) { told << text; });

    QStringList history;
    for (int step = 0; step < 200; ++step) {
        QStringList expected_to_be_told;
        told.clear();
        const int kind = mRandom.bounded(10);
        if (kind < 4) {
            const QString text = any_text(imports);
            history << u"add "_s + text;
            recent.add(text);
            model.add(text);
        } else if (kind < 6) {
            // Files come and go.
            const QString name = model.file(any_text(imports));
            history << u"toggle "_s + name;
            if (name.startsWith(mDirectory.path()) && !QFile::remove(name))
                QVERIFY(QFile(name).open(QIODevice::WriteOnly));
        } else if (const int count = static_cast<int>(menu.actions().size()); count > 0) {
            const int row = mRandom.bounded(count);
            history << u"choose row %1"_s.arg(row);
            const qsizetype index = row - model.above.size();
            const bool is_entry = index >= 0 && index < model.texts.size();
            const QString text = is_entry ? model.texts[index] : QString();
            const bool exists = is_entry && QFile::exists(model.file(text));
            DialogDriver driver;
            if (is_entry && !exists)
                driver.expect(u"QMessageBox"_s, press(QDialogButtonBox::Ok));
            menu.actions()[row]->trigger();
            QVERIFY2(driver.finish(), qPrintable(history.join(u'\n')));
            if (exists) {
                expected_to_be_told << text;
                model.add(text);
            } else if (is_entry) {
                model.texts.removeAt(index);
            }
        }
        const QByteArray where = history.join(u'\n').toUtf8();
        QVERIFY2(told == expected_to_be_told, where.constData());
        QVERIFY2(entries(recent) == model.texts, where.constData());
        QVERIFY2(rows(menu) == model.rows(), where.constData());
        QVERIFY2(menu.isEnabled() == !rows(menu).isEmpty(), where.constData());
    }
}

OSTREL_TEST(TstRecentFilesProperty)
#include "tst_recentfiles_property.moc"
