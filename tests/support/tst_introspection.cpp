// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

#include "support/MarkingTranslator.h"
#include "support/TestCase.h"
#include "support/own_methods.h"

#include <QTest>

using namespace Qt::StringLiterals;

class Introspected : public QObject
{
    Q_OBJECT

public:
    Q_INVOKABLE void call() {}

signals:
    void changed(int value);

public slots:
    void second(bool) {}
    void first() {}
};

class TstIntrospection : public TestCase
{
    Q_OBJECT

private slots:
    void texts_of_the_context_are_marked_until_it_goes()
    {
        {
            const MarkingTranslator marker("Mine");
            QCOMPARE(QCoreApplication::translate("Mine", "Text"), u"<Text>"_s);
            QCOMPARE(QCoreApplication::translate("Other", "Text"), u"Text"_s);
        }
        QCOMPARE(QCoreApplication::translate("Mine", "Text"), u"Text"_s);
    }

    void own_methods_stand_in_their_order()
    {
        QCOMPARE(own_methods(Introspected::staticMetaObject),
                 QStringList({u"signal changed(int)"_s, u"slot second(bool)"_s, u"slot first()"_s,
                              u"method call()"_s}));
    }
};

OSTREL_TEST(TstIntrospection)
#include "tst_introspection.moc"
