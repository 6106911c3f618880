// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

#include "support/FullDisk.h"
#include "support/TestCase.h"
#include "workbench/components/recovery/RecoveryFolder.h"

#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QSysInfo>
#include <QTemporaryDir>
#include <QTest>

using namespace fennar::recovery;
using namespace Qt::StringLiterals;

namespace {

KeptDocument document(const QString& text)
{
    return {u"/a/part.jou"_s, QDateTime::fromString(u"2026-05-01T12:03:00Z"_s, Qt::ISODate), text};
}

} // namespace

class TstRecoveryFolder : public TestCase
{
    Q_OBJECT

protected:
    void set_up() override;

private slots:
    void folder_is_new_and_for_the_user_only();
    void root_that_cannot_be_made_gives_no_folder();
    void written_documents_are_read_back();
    void names_come_in_the_order_of_their_numbers();
    void document_is_replaced();
    void failed_write_is_told_and_leaves_the_old_copy_data();
    void failed_write_is_told_and_leaves_the_old_copy();
    void removed_document_is_gone();
    void head_has_all_but_the_text();
    void folder_of_a_living_program_is_left_alone();
    void folder_given_up_is_claimed_by_one();
    void folder_of_a_dead_program_is_claimed_data();
    void folder_of_a_dead_program_is_claimed();
    void folder_of_another_machine_is_left_alone();
    void empty_folder_is_removed_when_it_is_claimed();
    void unfinished_writing_is_removed_with_the_folder();
    void links_and_files_are_no_folders();
    void removal_leaves_nothing();
    void missing_root_holds_nothing();

private:
    QString root() const { return mDirectory->filePath(u"data/recovery"_s); }
    QStringList folders() const { return QDir(root()).entryList(QDir::Dirs | QDir::NoDotAndDotDot); }
    static QStringList files(const QString& path)
    {
        return QDir(path).entryList(QDir::Files | QDir::Hidden, QDir::Name);
    }
    /** A folder with one document, and a lock as QLockFile writes it. */
    QString make_left(const QByteArray& lock);

    std::unique_ptr<QTemporaryDir> mDirectory;
};

void TstRecoveryFolder::set_up()
{
    mDirectory = std::make_unique<QTemporaryDir>();
}

QString TstRecoveryFolder::make_left(const QByteArray& lock)
{
    const std::unique_ptr<RecoveryFolder> folder = RecoveryFolder::make(root());
    if (!folder || !folder->write(1, document(u"left"_s)).isEmpty())
        qFatal("the folder could not be made");
    const QString path = mDirectory->filePath(u"data/recovery/left"_s);
    QDir().mkpath(path);
    QFile::copy(folder->path() + u"/1.journal"_s, path + u"/1.journal"_s);
    folder->remove_all();
    QFile file(path + u"/lock"_s);
    if (!file.open(QIODevice::WriteOnly) || file.write(lock) != lock.size())
        qFatal("the lock could not be written");
    return path;
}

void TstRecoveryFolder::folder_is_new_and_for_the_user_only()
{
    const auto one = RecoveryFolder::make(root());
    const auto other = RecoveryFolder::make(root());
    QVERIFY(one && other);
    QVERIFY(one->path() != other->path());
    QVERIFY(one->exists());
    QCOMPARE(folders().size(), 2);
    const QFileDevice::Permissions others = QFileDevice::ReadGroup | QFileDevice::WriteGroup |
                                            QFileDevice::ExeGroup | QFileDevice::ReadOther |
                                            QFileDevice::WriteOther | QFileDevice::ExeOther;
    QCOMPARE(QFile::permissions(one->path()) & others, QFileDevice::Permissions());
}

void TstRecoveryFolder::root_that_cannot_be_made_gives_no_folder()
{
    QVERIFY(!RecoveryFolder::make(u"/proc/no/such"_s));
}

void TstRecoveryFolder::written_documents_are_read_back()
{
    const auto folder = RecoveryFolder::make(root());
    QCOMPARE(folder->write(1, document(u"a\0\r\nb"_s)), QString());
    const std::optional<KeptDocument> read = folder->read(u"1.journal"_s);
    QVERIFY(read);
    QCOMPARE(read->text, u"a\0\r\nb"_s);
    QCOMPARE(read->file, u"/a/part.jou"_s);
    QCOMPARE(read->changed, document({}).changed);
    QVERIFY(!folder->read(u"2.journal"_s));
}

void TstRecoveryFolder::names_come_in_the_order_of_their_numbers()
{
    const auto folder = RecoveryFolder::make(root());
    QCOMPARE(folder->names(), QStringList());
    for (const int number : {10, 2, 1})
        QCOMPARE(folder->write(number, document(u"x"_s)), QString());
    QCOMPARE(folder->names(), (QStringList{u"1.journal"_s, u"2.journal"_s, u"10.journal"_s}));
}

void TstRecoveryFolder::document_is_replaced()
{
    const auto folder = RecoveryFolder::make(root());
    QCOMPARE(folder->write(1, document(QString(1000, u'x'))), QString());
    QCOMPARE(folder->write(1, document(u"y"_s)), QString());
    QCOMPARE(folder->read(u"1.journal"_s)->text, u"y"_s);
    QCOMPARE(files(folder->path()), (QStringList{u"1.journal"_s, u"lock"_s}));
}

void TstRecoveryFolder::failed_write_is_told_and_leaves_the_old_copy_data()
{
    QTest::addColumn<int>("size");
    QTest::newRow("hardly too much") << 1'000;
    QTest::newRow("less than a buffer") << 10'000;
    QTest::newRow("more than a buffer") << 1'000'000;
}

void TstRecoveryFolder::failed_write_is_told_and_leaves_the_old_copy()
{
    QFETCH(const int, size);
    const auto folder = RecoveryFolder::make(root());
    QCOMPARE(folder->write(1, document(u"old"_s)), QString());
    {
        const FullDisk full(1000);
        QVERIFY(!folder->write(1, document(QString(size, u'x'))).isEmpty());
    }
    QCOMPARE(folder->read(u"1.journal"_s)->text, u"old"_s);
    QCOMPARE(files(folder->path()), (QStringList{u"1.journal"_s, u"lock"_s}));
}

void TstRecoveryFolder::removed_document_is_gone()
{
    const auto folder = RecoveryFolder::make(root());
    QCOMPARE(folder->write(1, document(u"x"_s)), QString());
    QVERIFY(!folder->remove_if_empty());
    QVERIFY(folder->remove(u"1.journal"_s));
    QVERIFY(folder->remove(u"1.journal"_s));
    QCOMPARE(folder->names(), QStringList());
    QVERIFY(folder->remove_if_empty());
    QVERIFY(!folder->exists());
}

void TstRecoveryFolder::head_has_all_but_the_text()
{
    const auto folder = RecoveryFolder::make(root());
    QCOMPARE(folder->write(1, document(QString(1'000'000, u'x'))), QString());
    const KeptDocument head = folder->read_head(u"1.journal"_s);
    QCOMPARE(head.file, u"/a/part.jou"_s);
    QCOMPARE(head.changed, document({}).changed);
    QCOMPARE(head.text, QString());
    QCOMPARE(folder->read_head(u"2.journal"_s).file, QString());
}

void TstRecoveryFolder::folder_of_a_living_program_is_left_alone()
{
    const auto folder = RecoveryFolder::make(root());
    QCOMPARE(folder->write(1, document(u"x"_s)), QString());
    QVERIFY(RecoveryFolder::claim_left(root()).empty());
    QCOMPARE(folder->names(), QStringList{u"1.journal"_s});
}

void TstRecoveryFolder::folder_given_up_is_claimed_by_one()
{
    auto folder = RecoveryFolder::make(root());
    const QString path = folder->path();
    QCOMPARE(folder->write(1, document(u"x"_s)), QString());
    folder.reset();
    QVERIFY(QFile::exists(path + u"/1.journal"_s));
    auto claimed = RecoveryFolder::claim_left(root());
    QCOMPARE(claimed.size(), std::size_t(1));
    QCOMPARE(claimed.front()->path(), path);
    QVERIFY(RecoveryFolder::claim_left(root()).empty());
    // Whoever does not want it after all leaves it as it was.
    claimed.clear();
    claimed = RecoveryFolder::claim_left(root());
    QCOMPARE(claimed.size(), std::size_t(1));
    QCOMPARE(claimed.front()->read(u"1.journal"_s)->text, u"x"_s);
}

void TstRecoveryFolder::folder_of_a_dead_program_is_claimed_data()
{
    QTest::addColumn<QByteArray>("process");
    QTest::newRow("no such process") << QByteArray("999999999");
    QTest::newRow("number in use by this program") << QByteArray::number(QCoreApplication::applicationPid());
    QTest::newRow("number in use by another program") << QByteArray("1");
}

void TstRecoveryFolder::folder_of_a_dead_program_is_claimed()
{
    QFETCH(const QByteArray, process);
    make_left(process + '\n' + QCoreApplication::applicationName().toUtf8() + '\n' +
              QSysInfo::machineHostName().toUtf8() + '\n');
    const auto claimed = RecoveryFolder::claim_left(root());
    QCOMPARE(claimed.size(), std::size_t(1));
    QCOMPARE(claimed.front()->read(u"1.journal"_s)->text, u"left"_s);
    QVERIFY(RecoveryFolder::claim_left(root()).empty());
}

void TstRecoveryFolder::folder_of_another_machine_is_left_alone()
{
    const QString path = make_left("999999999\nfennar\nanother-machine\n");
    QVERIFY(RecoveryFolder::claim_left(root()).empty());
    QVERIFY(QFile::exists(path + u"/1.journal"_s));
}

void TstRecoveryFolder::empty_folder_is_removed_when_it_is_claimed()
{
    const QString path = make_left("999999999\nfennar\n" + QSysInfo::machineHostName().toUtf8() + '\n');
    QVERIFY(QFile::remove(path + u"/1.journal"_s));
    QVERIFY(RecoveryFolder::claim_left(root()).empty());
    QCOMPARE(folders(), QStringList());
}

void TstRecoveryFolder::unfinished_writing_is_removed_with_the_folder()
{
    auto folder = RecoveryFolder::make(root());
    QFile unfinished(folder->path() + u"/1.journal.AbCdEf"_s);
    QVERIFY(unfinished.open(QIODevice::WriteOnly));
    unfinished.close();
    folder.reset();
    QVERIFY(RecoveryFolder::claim_left(root()).empty());
    QCOMPARE(folders(), QStringList());
}

void TstRecoveryFolder::links_and_files_are_no_folders()
{
    const QString elsewhere = mDirectory->filePath(u"elsewhere"_s);
    QVERIFY(QDir().mkpath(elsewhere));
    QVERIFY(QDir().mkpath(root()));
    QFile own(elsewhere + u"/mine.txt"_s);
    QVERIFY(own.open(QIODevice::WriteOnly));
    QVERIFY(QFile::link(elsewhere, root() + u"/link"_s));
    QFile file(root() + u"/file"_s);
    QVERIFY(file.open(QIODevice::WriteOnly));
    QVERIFY(RecoveryFolder::claim_left(root()).empty());
    QCOMPARE(files(elsewhere), QStringList{u"mine.txt"_s});
    QVERIFY(file.exists());
}

void TstRecoveryFolder::removal_leaves_nothing()
{
    const auto folder = RecoveryFolder::make(root());
    QCOMPARE(folder->write(1, document(u"x"_s)), QString());
    folder->remove_all();
    QVERIFY(!folder->exists());
    QCOMPARE(folders(), QStringList());
    QVERIFY(!folder->write(1, document(u"x"_s)).isEmpty());
}

void TstRecoveryFolder::missing_root_holds_nothing()
{
    QVERIFY(RecoveryFolder::claim_left(root()).empty());
    QVERIFY(!QFile::exists(root()));
}

OSTREL_TEST(TstRecoveryFolder)
#include "tst_recoveryfolder.moc"
