// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

#include "support/TestCase.h"
#include "support/windows.h"
#include "workbench/components/recovery/RecoveryOffer.h"

#include <QDir>
#include <QLabel>
#include <QSignalSpy>
#include <QTemporaryDir>
#include <QTest>

#include <algorithm>

using namespace fennar::recovery;
using namespace Qt::StringLiterals;

class TstRecoveryOffer : public TestCase
{
    Q_OBJECT

protected:
    void set_up() override;

private slots:
    void documents_are_named_in_the_order_of_their_changes();
    void names_are_no_markup();
    void long_offer_is_cut_in_the_box_only();
    void box_is_not_modal();
    void button_gives_its_answer_data();
    void button_gives_its_answer();
    void escape_and_close_box_keep_for_later_data();
    void escape_and_close_box_keep_for_later();
    void documents_are_held_until_given_up();

private:
    void keep(const QString& file, int minute);
    std::unique_ptr<RecoveryOffer> make_offer();

    std::unique_ptr<QTemporaryDir> mDirectory;
};

void TstRecoveryOffer::set_up()
{
    mDirectory = std::make_unique<QTemporaryDir>();
}

void TstRecoveryOffer::keep(const QString& file, int minute)
{
    const auto folder = RecoveryFolder::make(mDirectory->path());
    QVERIFY(folder);
    const QDateTime changed(QDate(2026, 5, 1), QTime(12, minute));
    QCOMPARE(folder->write(1, {file, changed, u"text"_s}), QString());
}

std::unique_ptr<RecoveryOffer> TstRecoveryOffer::make_offer()
{
    return std::make_unique<RecoveryOffer>(nullptr, RecoveryFolder::claim_left(mDirectory->path()));
}

void TstRecoveryOffer::documents_are_named_in_the_order_of_their_changes()
{
    keep(u"/a/part.jou"_s, 3);
    keep({}, 1);
    keep(u"/b/part.jou"_s, 2);
    const auto offer = make_offer();
    QCOMPARE(offer->objectName(), u"recoveryOffer"_s);
    QCOMPARE(offer->windowTitle(), u"Recover Unsaved Work"_s);
    QCOMPARE(offer->text(), u"Unsaved work was kept when the program ended unexpectedly:\n\n"
                            "Untitled (changed 2026-05-01 12:01)\n"
                            "part.jou (changed 2026-05-01 12:02)\n"
                            "part.jou (changed 2026-05-01 12:03)"_s);
    QStringList files;
    for (const RecoveryOffer::Entry& entry : offer->entries())
        files << entry.folder->read(entry.name)->file;
    QCOMPARE(files, (QStringList{QString(), u"/b/part.jou"_s, u"/a/part.jou"_s}));
}

void TstRecoveryOffer::names_are_no_markup()
{
    keep(u"/a/<b>x<br>.jou"_s, 1);
    const auto offer = make_offer();
    QVERIFY(offer->text().contains("<b>x<br>.jou"_L1));
    const auto labels = offer->findChildren<QLabel*>();
    const auto shown = std::find_if(labels.begin(), labels.end(),
                                    [&](const QLabel* label) { return label->text() == offer->text(); });
    QVERIFY(shown != labels.end());
    QCOMPARE((*shown)->textFormat(), Qt::PlainText);
}

void TstRecoveryOffer::long_offer_is_cut_in_the_box_only()
{
    for (int i = 1; i <= 12; ++i)
        keep(u"/%1.jou"_s.arg(i), i);
    const auto offer = make_offer();
    const QStringList lines = offer->text().split(u'\n').sliced(2);
    QCOMPARE(lines.size(), 11);
    QVERIFY(lines[9].startsWith("10.jou"_L1));
    QCOMPARE(lines[10], u"and 2 more"_s);
    QCOMPARE(offer->entries().size(), std::size_t(12));
}

void TstRecoveryOffer::box_is_not_modal()
{
    keep({}, 1);
    const auto offer = make_offer();
    QVERIFY(show_active(offer.get()));
    QVERIFY(!offer->isModal());
    QVERIFY(!QApplication::activeModalWidget());
}

void TstRecoveryOffer::button_gives_its_answer_data()
{
    QTest::addColumn<QString>("button");
    QTest::addColumn<QString>("text");
    QTest::addColumn<RecoveryOffer::Answer>("answer");
    QTest::newRow("restore") << u"recoveryRestore"_s << u"&Restore All"_s << RecoveryOffer::Answer::Restore;
    QTest::newRow("later") << u"recoveryLater"_s << u"&Keep for Later"_s << RecoveryOffer::Answer::Later;
    QTest::newRow("discard") << u"recoveryDiscard"_s << u"&Discard"_s << RecoveryOffer::Answer::Discard;
}

void TstRecoveryOffer::button_gives_its_answer()
{
    QFETCH(const QString, button);
    keep({}, 1);
    const auto offer = make_offer();
    const QSignalSpy spy(offer.get(), &RecoveryOffer::answered);
    offer->show();
    auto* found = offer->findChild<QPushButton*>(button);
    QVERIFY(found);
    QTEST(found->text(), "text");
    QTest::mouseClick(found, Qt::LeftButton);
    QCOMPARE(spy.size(), 1);
    QTEST(spy.first().first().value<RecoveryOffer::Answer>(), "answer");
    QVERIFY(!offer->isVisible());
    // The box itself leaves all as it is.
    QCOMPARE(offer->entries().front().folder->names().size(), 1);
}

void TstRecoveryOffer::escape_and_close_box_keep_for_later_data()
{
    QTest::addColumn<bool>("escape");
    QTest::newRow("escape") << true;
    QTest::newRow("close box") << false;
}

void TstRecoveryOffer::escape_and_close_box_keep_for_later()
{
    QFETCH(const bool, escape);
    keep({}, 1);
    const auto offer = make_offer();
    const QSignalSpy spy(offer.get(), &RecoveryOffer::answered);
    QVERIFY(show_active(offer.get()));
    if (escape)
        QTest::keyClick(offer.get(), Qt::Key_Escape);
    else
        offer->close();
    QCOMPARE(spy.size(), 1);
    QCOMPARE(spy.first().first().value<RecoveryOffer::Answer>(), RecoveryOffer::Answer::Later);
    QVERIFY(!offer->isVisible());
}

void TstRecoveryOffer::documents_are_held_until_given_up()
{
    keep(u"/a.jou"_s, 1);
    keep(u"/b.jou"_s, 2);
    const auto offer = make_offer();
    QVERIFY(RecoveryFolder::claim_left(mDirectory->path()).empty());
    const RecoveryOffer::Entry done = offer->entries().front();
    QVERIFY(done.folder->remove(done.name));
    offer->give_up();
    QVERIFY(offer->entries().empty());
    // The one that was emptied is gone.
    QCOMPARE(QDir(mDirectory->path()).entryList(QDir::Dirs | QDir::NoDotAndDotDot).size(), 1);
    const auto left = RecoveryFolder::claim_left(mDirectory->path());
    QCOMPARE(left.size(), std::size_t(1));
    QCOMPARE(left.front()->read(u"1.journal"_s)->file, u"/b.jou"_s);
}

OSTREL_TEST(TstRecoveryOffer)
#include "tst_recoveryoffer.moc"
