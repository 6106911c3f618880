// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

#include "support/TestCase.h"

#include <QDir>
#include <QFile>
#include <QImage>
#include <QProcess>
#include <QRegularExpression>
#include <QSet>
#include <QTemporaryDir>
#include <QTest>

using namespace Qt::StringLiterals;

namespace {

/** How different two pictures are: the part of the pixels that differ, 1 if their sizes do. */
double difference(const QImage& a, const QImage& b)
{
    if (a.size() != b.size())
        return 1;
    qint64 different = 0;
    for (int y = 0; y < a.height(); ++y) {
        for (int x = 0; x < a.width(); ++x)
            different += a.pixel(x, y) != b.pixel(x, y);
    }
    return double(different) / (double(a.width()) * a.height());
}

double mean_lightness(const QImage& image)
{
    double sum = 0;
    for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x)
            sum += qGray(image.pixel(x, y));
    }
    return sum / (double(image.width()) * image.height());
}

} // namespace

/** The tour journal, played by the program as ./run does. */
class TstTour : public TestCase
{
    Q_OBJECT

protected:
    void set_up() override;

private slots:
    void tour_shows_the_workbench_in_pictures();
    void tour_needs_no_window();

private:
    /** Plays the tour in mDirectory and returns the exit status, -1 if it did not end well. */
    int play(const QStringList& options, const QString& platform);

    std::unique_ptr<QTemporaryDir> mDirectory;
    QString mOutput;
};

void TstTour::set_up()
{
    mDirectory = std::make_unique<QTemporaryDir>();
    QVERIFY(QFile::copy(QStringLiteral(JOURNALS "/tour.jou"), mDirectory->filePath(u"tour.jou"_s)));
}

int TstTour::play(const QStringList& options, const QString& platform)
{
    QProcess process;
    QProcessEnvironment variables = QProcessEnvironment::systemEnvironment();
    variables.insert(u"FENNAR_COMPONENT_PATH"_s, QStringLiteral(TREE_COMPONENTS));
    if (platform.isEmpty()) {
        variables.remove(u"QT_QPA_PLATFORM"_s);
        variables.remove(u"DISPLAY"_s);
    } else {
        variables.insert(u"QT_QPA_PLATFORM"_s, platform);
    }
    process.setProcessEnvironment(variables);
    process.setWorkingDirectory(mDirectory->path());
    process.setProcessChannelMode(QProcess::MergedChannels);
    process.start(QStringLiteral(FENNAR), QStringList{u"--settings"_s, u"settings.ini"_s} + options +
                                              QStringList{u"--play"_s, u"tour.jou"_s});
    // The watchdog of the test ends what takes too long.
    const bool ended = process.waitForFinished(-1) && process.exitStatus() == QProcess::NormalExit;
    mOutput = QString::fromUtf8(process.readAll());
    return ended ? process.exitCode() : -1;
}

void TstTour::tour_shows_the_workbench_in_pictures()
{
    const int status = play({}, u"xcb"_s);
    QVERIFY2(status == 0, qPrintable(mOutput));

    // Which pictures there are to be, the journal itself tells.
    QFile journal(QStringLiteral(JOURNALS "/tour.jou"));
    QVERIFY(journal.open(QIODevice::ReadOnly));
    const QString text = QString::fromUtf8(journal.readAll());
    static const QRegularExpression command(u"^picture (\\S+)(?: of (\\S+))?"_s,
                                            QRegularExpression::MultilineOption);
    QMap<QString, QImage> pictures;
    for (auto match = command.globalMatch(text); match.hasNext();) {
        const QString name = match.next().captured(1);
        const QImage image(mDirectory->filePath(name));
        QVERIFY2(!image.isNull(), qPrintable(name));
        QVERIFY2(image.width() >= 400 && image.height() >= 300, qPrintable(name));
        QSet<QRgb> colors;
        for (int y = 0; y < image.height(); y += 2) {
            for (int x = 0; x < image.width(); x += 2)
                colors.insert(image.pixel(x, y));
        }
        QVERIFY2(colors.size() > 40, qPrintable(u"%1 has %2 colors"_s.arg(name).arg(colors.size())));
        pictures.insert(name, image);
    }
    QVERIFY(pictures.size() >= 8);
    for (auto a = pictures.begin(); a != pictures.end(); ++a) {
        for (auto b = std::next(a); b != pictures.end(); ++b) {
            const double different = difference(*a, *b);
            QVERIFY2(different > 0.005, qPrintable(u"%1 and %2: %3"_s.arg(a.key(), b.key()).arg(different)));
        }
    }
    QVERIFY(mean_lightness(pictures[u"dark.png"_s]) < 90);
    QVERIFY(mean_lightness(pictures[u"mesh.png"_s]) > 150);

    // The color of the mesh, and of nothing else that is as large.
    const auto green = [](const QImage& image) {
        int pixels = 0;
        for (int y = 0; y < image.height(); ++y) {
            for (int x = 0; x < image.width(); ++x) {
                const QColor color = image.pixelColor(x, y);
                pixels += color.green() > color.red() + 15 && color.green() > color.blue() + 8;
            }
        }
        return pixels;
    };
    QVERIFY2(green(pictures[u"mesh.png"_s]) > 10 * green(pictures[u"part.png"_s]) + 5000,
             qPrintable(QString::number(green(pictures[u"mesh.png"_s]))));
    // The mesher was at work: its mesh is not there yet, and comes later.
    QVERIFY2(green(pictures[u"workbench.png"_s]) > 10 * green(pictures[u"progress.png"_s]) + 5000,
             qPrintable(QString::number(green(pictures[u"progress.png"_s]))));
    // What other programs can read is there, too.
    for (const QString& name : {u"tour_flange.step"_s, u"tour_flange.stl"_s, u"tour_flange.mdl"_s})
        QVERIFY2(QFileInfo(mDirectory->filePath(name)).size() > 1000, qPrintable(name));
    // The user's next start is as it was: in colors, and in what is displayed.
    QFile settings(mDirectory->filePath(u"settings.ini"_s));
    QVERIFY(settings.open(QIODevice::ReadOnly));
    const QByteArray kept = settings.readAll();
    QVERIFY2(!kept.contains("scheme="), kept.constData());
    QVERIFY2(!kept.contains("[graphics]"), kept.constData());
}

void TstTour::tour_needs_no_window()
{
    // The fine mesh, which is there to take a while, shows nothing here that a coarse one does not.
    QFile journal(mDirectory->filePath(u"tour.jou"_s));
    QVERIFY(journal.open(QIODevice::ReadWrite));
    QByteArray lines = journal.readAll();
    QCOMPARE(lines.count("size 1.2"), 1);
    QVERIFY(journal.resize(0) && journal.seek(0));
    QVERIFY(journal.write(lines.replace("size 1.2", "size 6")) > 0);
    journal.close();
    QCOMPARE(play({u"--batch"_s}, {}), 0);
    QVERIFY2(!mOutput.contains(u"ERROR"_s), qPrintable(mOutput));
    QVERIFY(mOutput.contains(u"There is no window; \"picture\" was passed over.\n"_s));
    QVERIFY(mOutput.contains(u"There are no windows; their colors stay as they are.\n"_s));
    // Out and in again the volume is the same: that of a plate with a boss, a bore and six holes.
    static const QRegularExpression row(u"^ *\\d+ +(?:tour_)?flange +33104 "_s,
                                        QRegularExpression::MultilineOption);
    int rows = 0;
    for (auto match = row.globalMatch(mOutput); match.hasNext(); match.next())
        ++rows;
    QVERIFY2(rows == 2, qPrintable(mOutput));
    QVERIFY2(mOutput.contains(u"closed, volume 330"_s), qPrintable(mOutput));
    QCOMPARE(QDir(mDirectory->path()).entryList({u"*.png"_s}), QStringList());
}

OSTREL_TEST(TstTour)
#include "tst_tour.moc"
