// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

#include "support/TestCase.h"
#include "workbench/sdk/core/files/write_whole_file.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QScopeGuard>
#include <QTemporaryDir>
#include <QTest>

#include <csignal>
#include <sys/resource.h>
#include <sys/stat.h>
#include <unistd.h>

using namespace fennar;
using namespace Qt::StringLiterals;

namespace {

QByteArray content(const QString& path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray("(cannot be read)");
}

} // namespace

class TstWriteWholeFile : public TestCase
{
    Q_OBJECT

protected:
    void set_up() override;

private slots:
    void parts_follow_each_other();
    void names_may_have_any_characters_data();
    void names_may_have_any_characters();
    void new_file_has_the_usual_permissions();
    void permissions_stay();
    void link_stays_a_link();
    void link_to_nothing_makes_the_file();
    void ring_of_links_is_refused();
    void full_device_fails_and_stays_a_device();
    void full_disk_leaves_the_old_file_whole();
    void missing_directory_is_an_error();
    void directory_is_not_replaced();
    void file_without_permission_is_not_replaced();
    void directory_without_permission_leaves_the_old_file_whole();

private:
    QString path(const QString& name) const { return mDirectory->filePath(name); }
    QStringList files() const
    {
        return QDir(mDirectory->path())
            .entryList(QDir::AllEntries | QDir::System | QDir::Hidden | QDir::NoDotAndDotDot);
    }

    std::unique_ptr<QTemporaryDir> mDirectory;
};

void TstWriteWholeFile::set_up()
{
    mDirectory = std::make_unique<QTemporaryDir>();
}

void TstWriteWholeFile::parts_follow_each_other()
{
    QCOMPARE(write_whole_file(path(u"a"_s), {"one", {}, QByteArray("t\0o\n", 4)}), QString());
    QCOMPARE(content(path(u"a"_s)), QByteArray("onet\0o\n", 7));
    QCOMPARE(write_whole_file(path(u"a"_s), {}), QString());
    QCOMPARE(content(path(u"a"_s)), QByteArray());
    QCOMPARE(files(), QStringList(u"a"_s));
}

void TstWriteWholeFile::names_may_have_any_characters_data()
{
    QTest::addColumn<QString>("name");
    QTest::newRow("odd characters") << u" a;b#c%d&e\"f'g.mdl"_s;
    QTest::newRow("other letters") << u"модель 模型 é.mdl"_s;
    QTest::newRow("line feed") << u"a\nb.mdl"_s;
    QTest::newRow("as long as can be") << QString(255, u'x');
}

void TstWriteWholeFile::names_may_have_any_characters()
{
    QFETCH(const QString, name);
    QCOMPARE(write_whole_file(path(name), {"x"}), QString());
    QCOMPARE(content(path(name)), "x");
    QCOMPARE(files(), QStringList(name));
}

void TstWriteWholeFile::new_file_has_the_usual_permissions()
{
    const mode_t before = ::umask(027);
    const auto restore = qScopeGuard([before] { ::umask(before); });
    QCOMPARE(write_whole_file(path(u"a"_s), {"x"}), QString());
    struct stat status = {};
    QCOMPARE(::stat(QFile::encodeName(path(u"a"_s)).constData(), &status), 0);
    QCOMPARE(int(status.st_mode & 07777), 0640);
}

void TstWriteWholeFile::permissions_stay()
{
    QCOMPARE(write_whole_file(path(u"a"_s), {"x"}), QString());
    QCOMPARE(::chmod(QFile::encodeName(path(u"a"_s)).constData(), 0604), 0);
    QCOMPARE(write_whole_file(path(u"a"_s), {"y"}), QString());
    struct stat status = {};
    QCOMPARE(::stat(QFile::encodeName(path(u"a"_s)).constData(), &status), 0);
    QCOMPARE(int(status.st_mode & 07777), 0604);
    QCOMPARE(content(path(u"a"_s)), "y");
}

void TstWriteWholeFile::link_stays_a_link()
{
    QVERIFY(QDir(mDirectory->path()).mkdir(u"d"_s));
    QCOMPARE(write_whole_file(path(u"d/a"_s), {"x"}), QString());
    QVERIFY(QFile::link(u"d/a"_s, path(u"l"_s)));
    QVERIFY(QFile::link(u"l"_s, path(u"m"_s)));
    QCOMPARE(write_whole_file(path(u"m"_s), {"y"}), QString());
    QCOMPARE(content(path(u"d/a"_s)), "y");
    QVERIFY(QFileInfo(path(u"m"_s)).isSymLink() && QFileInfo(path(u"l"_s)).isSymLink());
    QVERIFY(!QFileInfo(path(u"d/a"_s)).isSymLink());
}

void TstWriteWholeFile::link_to_nothing_makes_the_file()
{
    QVERIFY(QFile::link(u"a"_s, path(u"l"_s)));
    QCOMPARE(write_whole_file(path(u"l"_s), {"y"}), QString());
    QCOMPARE(content(path(u"a"_s)), "y");
    QVERIFY(QFileInfo(path(u"l"_s)).isSymLink());
}

void TstWriteWholeFile::ring_of_links_is_refused()
{
    QVERIFY(QFile::link(u"b"_s, path(u"a"_s)));
    QVERIFY(QFile::link(u"a"_s, path(u"b"_s)));
    QCOMPARE(write_whole_file(path(u"a"_s), {"y"}), qt_error_string(ELOOP));
    QCOMPARE(files(), QStringList({u"a"_s, u"b"_s}));
}

void TstWriteWholeFile::full_device_fails_and_stays_a_device()
{
    QCOMPARE(write_whole_file(u"/dev/full"_s, {"x"}), qt_error_string(ENOSPC));
    QVERIFY(QFile::link(u"/dev/full"_s, path(u"a"_s)));
    QCOMPARE(write_whole_file(path(u"a"_s), {"x"}), qt_error_string(ENOSPC));
    struct stat status = {};
    QCOMPARE(::stat("/dev/full", &status), 0);
    QVERIFY(S_ISCHR(status.st_mode));
    QCOMPARE(write_whole_file(u"/dev/null"_s, {"x"}), QString());
}

void TstWriteWholeFile::full_disk_leaves_the_old_file_whole()
{
    QCOMPARE(write_whole_file(path(u"a"_s), {"old"}), QString());
    // To a file that may not grow any more each write fails as on a full disk.
    const auto handler = std::signal(SIGXFSZ, SIG_IGN);
    rlimit limit = {};
    QCOMPARE(::getrlimit(RLIMIT_FSIZE, &limit), 0);
    rlimit small = limit;
    small.rlim_cur = 10'000;
    QCOMPARE(::setrlimit(RLIMIT_FSIZE, &small), 0);
    const QString reason = write_whole_file(path(u"a"_s), {QByteArray(6'000, 'x'), QByteArray(6'000, 'y')});
    QCOMPARE(::setrlimit(RLIMIT_FSIZE, &limit), 0);
    std::signal(SIGXFSZ, handler);
    QCOMPARE(reason, qt_error_string(EFBIG));
    QCOMPARE(content(path(u"a"_s)), "old");
    QCOMPARE(files(), QStringList(u"a"_s));
}

void TstWriteWholeFile::missing_directory_is_an_error()
{
    QCOMPARE(write_whole_file(path(u"gone/a"_s), {"x"}), qt_error_string(ENOENT));
    QCOMPARE(write_whole_file(path(u"a"_s), {"old"}), QString());
    QCOMPARE(write_whole_file(path(u"a/b"_s), {"x"}), qt_error_string(ENOTDIR));
    QCOMPARE(content(path(u"a"_s)), "old");
}

void TstWriteWholeFile::directory_is_not_replaced()
{
    QVERIFY(QDir(mDirectory->path()).mkdir(u"d"_s));
    QCOMPARE(write_whole_file(path(u"d"_s), {"x"}), qt_error_string(EISDIR));
    QVERIFY(QFileInfo(path(u"d"_s)).isDir());
    QCOMPARE(files(), QStringList(u"d"_s));
}

namespace {

/** Runs @p work as a user who is not the administrator, for whom permissions do not count. */
template <typename Work>
void without_privileges(const Work& work)
{
    const bool administrator = ::geteuid() == 0;
    constexpr uid_t nobody = 65534;
    if (administrator && ::seteuid(nobody) != 0)
        qFatal("the user cannot be changed");
    work();
    if (administrator && ::seteuid(0) != 0)
        qFatal("the user cannot be changed back");
}

} // namespace

void TstWriteWholeFile::file_without_permission_is_not_replaced()
{
    const QByteArray directory = QFile::encodeName(mDirectory->path());
    QCOMPARE(::chmod(directory.constData(), 0777), 0);
    QCOMPARE(write_whole_file(path(u"a"_s), {"old"}), QString());
    QCOMPARE(::chmod(QFile::encodeName(path(u"a"_s)).constData(), 0444), 0);
    QString reason;
    without_privileges([&] { reason = write_whole_file(path(u"a"_s), {"new"}); });
    QCOMPARE(reason, qt_error_string(EACCES));
    QCOMPARE(content(path(u"a"_s)), "old");
    QCOMPARE(files(), QStringList(u"a"_s));
}

void TstWriteWholeFile::directory_without_permission_leaves_the_old_file_whole()
{
    const QByteArray directory = QFile::encodeName(mDirectory->path());
    QCOMPARE(write_whole_file(path(u"a"_s), {"old"}), QString());
    QCOMPARE(::chmod(QFile::encodeName(path(u"a"_s)).constData(), 0666), 0);
    QCOMPARE(::chmod(directory.constData(), 0555), 0);
    QString reason;
    without_privileges([&] { reason = write_whole_file(path(u"a"_s), {"new"}); });
    QCOMPARE(::chmod(directory.constData(), 0755), 0);
    QCOMPARE(reason, qt_error_string(EACCES));
    QCOMPARE(content(path(u"a"_s)), "old");
}

OSTREL_TEST(TstWriteWholeFile)
#include "tst_writewholefile.moc"
