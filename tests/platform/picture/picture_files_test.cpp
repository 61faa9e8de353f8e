// SPDX-License-Identifier: GPL-2.0-or-later
// Symbols from a player's own files: which file is symbol n, what is refused
// and why, that a drawing reaches nothing outside its folder, and that its
// gradients, masks, blurs and title come through.
#include "platform/picture/picture_files.h"

#include <QBuffer>
#include <QDeadlineTimer>
#include <QPainter>
#include <QTcpServer>
#include <QTemporaryDir>
#include <QtTest>

namespace {

using Files = QList<QPair<QString, QByteArray>>;

QByteArray svg(const QByteArray& body, const QByteArray& head = {})
{
    return head + "<svg xmlns='http://www.w3.org/2000/svg' xmlns:xlink='http://www.w3.org/1999/xlink'"
                  " width='40' height='20'>" + body + "</svg>";
}

QByteArray png(QColor colour, QSize size = {8, 8})
{
    QImage image(size, QImage::Format_RGB32);
    image.fill(colour);
    QByteArray bytes;
    QBuffer buffer(&bytes);
    return buffer.open(QIODevice::WriteOnly) && image.save(&buffer, "PNG") ? bytes : QByteArray();
}

}  // namespace

class PictureFilesTest : public QObject {
    Q_OBJECT

private slots:
    // A symbol folder's files, and how many symbols the game finds there with
    // symbol 0 over 40 x 20 px on white seen at x = 1, 12 and 20 and its title,
    // or why none. A drawing that reaches outside its folder (or the server
    // standing in for the network) turns red where it would be green.
    void aFolder_data()
    {
        QTest::addColumn<Files>("files");
        QTest::addColumn<QString>("result");
        QFile ours(qEnvironmentVariable("REELMOOR_ASSETS") + "/3.emf");
        QVERIFY(ours.open(QIODevice::ReadOnly));
        const QByteArray emf = ours.readAll(), bad = "<svg", green = "<rect width='40' height='20' fill='lime'/>";
        const QByteArray red = svg("<rect width='40' height='20' fill='red'/>"), box = " width='40' height='20'/>";
        const QString sameGreen = "1 #00ff00 #00ff00 #00ff00";
        QByteArray laughs = "<!DOCTYPE svg [<!ENTITY a0 'laugh'>";
        for (int i = 1; i < 12; ++i)  // ten to the eleventh laughs
            laughs += "<!ENTITY a" + QByteArray::number(i) + " '" + ("&a" + QByteArray::number(i - 1) + ';').repeated(10) + "'>";
        QTest::newRow("emf before svg") << Files{{"0.emf", emf}, {"0.svg", red}} << "1 #ffffff #f5aa14 #f5aa14 gold circle";
        QTest::newRow("svg before png") << Files{{"0.svg", red}, {"0.png", png(Qt::blue)}} << "1 #ff0000 #ff0000 #ff0000";
        QTest::newRow("the first that loads") << Files{{"0.emf", bad}, {"0.svg", bad}, {"0.png", png(Qt::blue)}} << "1 #0000ff #0000ff #0000ff";
        QTest::newRow("damage ends the strip") << Files{{"0.png", png(Qt::red)}, {"1.svg", bad}, {"2.svg", red}} << "1 #ff0000 #ff0000 #ff0000";
        QTest::newRow("empty drawing") << Files{{"0.svg", {}}} << "0 0.svg: the file is empty";
        QTest::newRow("cut drawing") << Files{{"0.svg", red.left(70)}} << "0 0.svg: the drawing cannot be read";
        QTest::newRow("entity bomb") << Files{{"0.svg", svg("<title>&a11;</title>", laughs + "]>")}} << "0 0.svg: the drawing cannot be read";
        QTest::newRow("no size") << Files{{"0.svg", "<svg xmlns='http://www.w3.org/2000/svg'/>"}} << "0 0.svg: the drawing gives no size";
        QTest::newRow("cut png") << Files{{"0.png", png(Qt::red, {64, 64}).chopped(30)}} << "0 0.png: the file is no PNG picture, or is cut short";
        QTest::newRow("drawing named png") << Files{{"0.png", red}} << "0 0.png: the file is no PNG picture";
        QTest::newRow("image, relative") << Files{{"0.svg", svg(green + "<image href='../out.png'" + box)}} << sameGreen;
        QTest::newRow("image, file url") << Files{{"0.svg", svg(green + "<image xlink:href='file://OUT/out.png'" + box)}} << sameGreen;
        QTest::newRow("image, network") << Files{{"0.svg", svg(green + "<image href='http://127.0.0.1:PORT/x.png'" + box)}} << sameGreen;
        QTest::newRow("use of a drawing") << Files{{"0.svg", svg(green + "<use href='../out.svg#all'/>")}} << sameGreen;
        QTest::newRow("css import") << Files{{"0.svg", svg("<style>@import url(../out.css);</style><rect class='all' fill='lime'" + box)}} << sameGreen;
        QTest::newRow("xinclude") << Files{{"0.svg", svg(green + "<xi:include xmlns:xi='http://www.w3.org/2001/XInclude' href='../out.svg'/>")}} << sameGreen;
        QTest::newRow("gradient") << Files{{"0.svg", svg("<linearGradient id='g'><stop stop-color='red'/><stop offset='1' stop-color='blue'/>"
                                                         "</linearGradient><rect fill='url(#g)'" + box)}} << "1 #ff0000 #af0050 #800080";
        QTest::newRow("mask") << Files{{"0.svg", svg("<mask id='m'><rect width='16' height='20' fill='white'/></mask>"
                                                     "<rect fill='red' mask='url(#m)'" + box)}} << "1 #ff0000 #ff0000 #ffffff";
        QTest::newRow("blur") << Files{{"0.svg", svg("<filter id='b' x='-1' width='3'><feGaussianBlur stdDeviation='4'/></filter>"
                                                     "<rect x='15' width='10' height='20' filter='url(#b)'/>")}} << "1 #ffffff #bcbcbc #393939";
        QTest::newRow("css, opacity") << Files{{"0.svg", svg("<style>rect { fill: red; opacity: 0.5 }</style><rect" + box)}} << "1 #ff8080 #ff8080 #ff8080";
        QTest::newRow("title") << Files{{"0.svg", svg("<title> Golden\n crown </title>")}} << "1 #ffffff #ffffff #ffffff Golden crown";
    }
    void aFolder()
    {
        QFETCH(Files, files);
        QFETCH(QString, result);
        QTemporaryDir dir;
        QTcpServer network;
        QVERIFY(network.listen(QHostAddress::LocalHost) && QDir(dir.path()).mkdir("symbols"));
        files << qMakePair(QString("../out.png"), png(Qt::red)) << qMakePair(QString("../out.css"), QByteArray(".all { fill: red }"))
              << qMakePair(QString("../out.svg"), svg("<rect id='all' width='40' height='20' fill='red'/>"));
        for (auto& [name, bytes] : files) {
            QFile file(dir.filePath("symbols/" + name));
            bytes.replace("OUT", dir.path().toUtf8()).replace("PORT", QByteArray::number(network.serverPort()));
            QVERIFY(file.open(QIODevice::WriteOnly) && file.write(bytes) == bytes.size());
        }
        const QDeadlineTimer twoSeconds(2000);
        const std::vector<Picture> symbols = pictures::loadSymbols(QDir(dir.filePath("symbols")));
        QVERIFY(!twoSeconds.hasExpired() && !network.waitForNewConnection(100));
        if (symbols.empty()) {
            QCOMPARE("0 " + pictures::loadSymbol(QDir(dir.filePath("symbols")), 0).why.left(result.size() - 2), result);
            return;
        }
        QImage image(40, 20, QImage::Format_RGB32);
        image.fill(Qt::white);
        QPainter painter(&image);
        symbols[0].paint(painter, QRectF(0, 0, 40, 20));
        QCOMPARE(QString::number(symbols.size()), result.section(' ', 0, 0));
        QCOMPARE(symbols[0].title(), result.section(' ', 4, -1));
        for (int i = 1; i <= 3; ++i) {
            const QColor want(result.section(' ', i, i)), at = image.pixelColor(QList<int>{0, 1, 12, 20}[i], 10);
            const int off = std::abs(at.red() - want.red()) + std::abs(at.green() - want.green()) + std::abs(at.blue() - want.blue());
            QVERIFY2(off < 60, qPrintable(at.name() + " at " + QString::number(i)));
        }
    }
};

QTEST_MAIN(PictureFilesTest)
#include "picture_files_test.moc"
