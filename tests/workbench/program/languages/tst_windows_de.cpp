// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

#include "WindowTest.h"
#include "workbench/host/navigation/CommandForm.h"
#include "workbench/host/navigation/NavigationEntries.h"

#include <QLabel>
#include <QStandardItemModel>
#include <QTest>

using namespace fennar;
using namespace Qt::StringLiterals;

class TstGerman : public WindowTest
{
    Q_OBJECT

public:
    TstGerman() : WindowTest(u"de"_s) {}

private slots:
    void forms_tell_what_is_wrong_data();
    void forms_tell_what_is_wrong();
};

void TstGerman::forms_tell_what_is_wrong_data()
{
    QTest::addColumn<QString>("line");
    QTest::addColumn<QString>("message");
    const auto row = [](const char* line, const QString& message) {
        QTest::newRow(line) << QString::fromLatin1(line) << message;
    };
    row("sphere 0", u"Radius: eine Zahl von 1e-05 bis 1e+06."_s);
    row("picture part.png after -1", u"Verzögerung: eine Zahl von 0 bis 3600."_s);
    row("torus 2 3", u"erwartet: ein Radius des Rohrs (kleiner als 2), gefunden: \"3\""_s);
    row("subtract brick1 from brick1", u"\"brick1\" wurde schon genannt"_s);
    row("export part.msh brick1",
        u"erwartet: das Ende der Zeile (Dateien im Format MSH enthalten das letzte Netz), gefunden: \"brick1\""_s);
    row("export part.step size 5",
        u"erwartet: das Ende der Zeile (Dateien im Format STEP enthalten Körper), gefunden: \"size\""_s);
    row("export part.igs", u"Dateien im Format IGES können nicht geschrieben werden"_s);
    row("picture part.xyz", u"die Endung der Datei nennt kein Bildformat, wie es .png oder .jpg tun"_s);
    row("parameter x whole 2 min 3", u"erwartet: x (eine ganze Zahl ab 3), gefunden: \"2\""_s);
    row("parameter x choice fine of 'coarse middle'",
        u"erwartet: \"coarse\" oder \"middle\", gefunden: \"fine\""_s);
    row("parameter x number 2 min 3 max 1", u"das Maximum ist kleiner als das Minimum"_s);
    row("set radus", u"erwartet: eine Variable, die gesetzt ist, gefunden: \"radus\""_s);
}

void TstGerman::forms_tell_what_is_wrong()
{
    QFETCH(const QString, line);
    CommandForm form(nullptr);
    QStandardItemModel model;
    auto* const item = new QStandardItem(line);
    item->setData(line, NavigationRole::Command);
    model.appendRow(item);
    form.set_entry(item->index());
    QTEST(form.findChild<QLabel*>(u"commandMessage"_s)->text(), "message");
}

OSTREL_TEST(TstGerman)
#include "tst_windows_de.moc"
