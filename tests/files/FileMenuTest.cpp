// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

#include "FileMenuTest.h"

#include "files/OstrelFileMenu.h"
#include "hostdouble/HostDouble.h"
#include "support/statics.h"

#include <QDir>
#include <QFile>
#include <QTest>

HostDouble& host()
{
    return HostDouble::instance();
}

void FileMenuTest::make_file(const QString& name) const
{
    QFile file(place(name));
    QVERIFY(file.open(QIODevice::WriteOnly));
}

FileMenuTest::Asked FileMenuTest::asked_by(const std::function<void()>& act) const
{
    Asked asked{};
    DialogDriver driver;
    driver.expect<QFileDialog>([&](QFileDialog* dialog) {
        static_cast<FileQuestion&>(asked) = file_question(dialog);
        asked.parent = dialog->parentWidget();
        press(QDialogButtonBox::Cancel)(dialog);
    });
    act();
    [&] { QVERIFY(driver.finish()); }();
    return asked;
}

void FileMenuTest::set_up()
{
    reset_statics();
    mPlace = std::make_unique<QTemporaryDir>();
    mDirectory = QDir(mPlace->path()).canonicalPath();
    mWindow = std::make_unique<Ostrel>();
    mMenu = mWindow->file_menu();
    OstrelFileMenu::mPath = mDirectory;
    host().reset();
}

void FileMenuTest::tear_down()
{
    mWindow.reset();
    reset_statics();
}

void expect_choice(DialogDriver& driver, const QString& path, const QString& filter)
{
    driver.expect<QFileDialog>(
        [path, filter](QFileDialog* dialog) { choose_with_return(dialog, path, filter); });
}

void expect_cancel(DialogDriver& driver)
{
    driver.expect<QFileDialog>([](QFileDialog* dialog) { press(QDialogButtonBox::Cancel)(dialog); });
}
