// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

#pragma once

#include "frame/Ostrel.h"
#include "support/TestCase.h"
#include "support/dialogs.h"

#include <QTemporaryDir>

#include <functional>
#include <memory>

class HostDouble;
class OstrelFileMenu;

/** A test of the file menu of a real window. The menu starts in an empty directory of its own. */
class FileMenuTest : public TestCase
{
    Q_OBJECT

protected:
    /** A name in the directory. */
    QString place(const QString& name) const { return mDirectory + u'/' + name; }
    /** Makes an empty file in the directory. */
    void make_file(const QString& name) const;

    /** What a file dialog asks for, and of whom; it is cancelled. */
    struct Asked : FileQuestion
    {
        const QWidget* parent = nullptr;
    };
    /** @param act  brings the dialog up; the test fails if none comes. */
    Asked asked_by(const std::function<void()>& act) const;

    QString mDirectory;
    std::unique_ptr<Ostrel> mWindow;
    OstrelFileMenu* mMenu = nullptr;

    void set_up() override;
    void tear_down() override;

private:
    std::unique_ptr<QTemporaryDir> mPlace;
};

HostDouble& host();
void expect_choice(DialogDriver& driver, const QString& path, const QString& filter = {});
void expect_cancel(DialogDriver& driver);
