// SPDX-License-Identifier: GPL-2.0-or-later
// Symbols from a player's own files: which file is symbol n, what is refused
// and why, that a drawing reaches nothing outside its folder, and that its
// gradients, masks and blurs are drawn.
#include "platform/picture/picture_files.h"

#include <QBuffer>
#include <QElapsedTimer>
#include <QPainter>
#include <QTcpServer>
#include <QTemporaryDir>
#include <QtTest>

namespace {

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

// A PNG whose header claims 100000 x 100000 pixels, its checksum made good.
QByteArray hugePng()
{
    QByteArray bytes = png(Qt::red);
    qToBigEndian<quint32>(100000, bytes.data() + 16);
    qToBigEndian<quint32>(100000, bytes.data() + 20);
    quint32 crc = ~0u;
    for (int bit = 12 * 8; bit < 29 * 8; ++bit)
        crc = (crc >> 1) ^ (0xEDB88320u & (0u - ((crc ^ (uchar(bytes[bit / 8]) >> (bit % 8))) & 1)));
    qToBigEndian<quint32>(~crc, bytes.data() + 29);
    return bytes;
}

void write(const QString& path, const QByteArray& bytes)
{
    QFile file(path);
    QVERIFY(file.open(QIODevice::WriteOnly) && file.write(bytes) == bytes.size());
}

// The picture stretched over 40 x 20 px on white, seen at x = 1, 12 and 20 of its middle row.
QList<QColor> seen(const Picture& picture)
{
    QImage image(40, 20, QImage::Format_RGB32);
    image.fill(Qt::white);
    QPainter painter(&image);
    picture.paint(painter, QRectF(0, 0, 40, 20));
    return {image.pixelColor(1, 10), image.pixelColor(12, 10), image.pixelColor(20, 10)};
}

}  // namespace

class PictureFilesTest : public QObject {
    Q_OBJECT

private slots:
    void symbolsOfAFolder_data()
    {
        QTest::addColumn<QStringList>("files");  // name=red|blue|bad|ours (our 3.emf)
        QTest::addColumn<QString>("symbols");    // symbol by symbol: r(ed), b(lue), o(urs)
        QTest::newRow("one of each, no 3") << QStringList{"0.emf=ours", "1.svg=red", "2.png=blue", "4.svg=red"} << "orb";
        QTest::newRow("svg before png") << QStringList{"0.svg=red", "0.png=blue"} << "r";
        QTest::newRow("emf before svg") << QStringList{"0.emf=ours", "0.svg=red"} << "o";
        QTest::newRow("the first that loads") << QStringList{"0.emf=bad", "0.svg=bad", "0.png=blue"} << "b";
        QTest::newRow("damage ends the strip") << QStringList{"0.png=red", "1.svg=bad", "2.svg=red"} << "r";
    }
    void symbolsOfAFolder()
    {
        QFETCH(QStringList, files);
        QTemporaryDir dir;
        for (const QString& file : files) {
            const QString name = file.section('=', 0, 0), what = file.section('=', 1);
            if (what == "ours")
                QVERIFY(QFile::copy(qEnvironmentVariable("REELMOOR_ASSETS") + "/3.emf", dir.filePath(name)));
            else
                write(dir.filePath(name), what == "bad" ? QByteArray("<svg") : name.endsWith("png") ? png(QColor(what))
                                                           : svg("<rect width='40' height='20' fill='" + what.toLatin1() + "'/>"));
        }
        QString symbols;
        for (const Picture& picture : pictures::loadSymbols(QDir(dir.path())))
            symbols += seen(picture)[2] == Qt::red ? 'r' : seen(picture)[2] == Qt::blue ? 'b' : 'o';
        QTEST(symbols, "symbols");
    }

    // Each file alone in a folder: refused with a reason, or drawn as told.
    // A drawing that reaches outside its folder (or to the local server
    // standing in for the network) turns red where it would be green.
    void oneFile_data()
    {
        QTest::addColumn<QString>("name");
        QTest::addColumn<QByteArray>("bytes");
        QTest::addColumn<QString>("result");  // the reason refused, or the three colours seen and the title
        QByteArray laughs = "<!DOCTYPE svg [<!ENTITY a0 'laugh'>";
        for (int i = 1; i < 12; ++i)  // ten to the eleventh laughs
            laughs += "<!ENTITY a" + QByteArray::number(i) + " '" + ("&a" + QByteArray::number(i - 1) + ';').repeated(10) + "'>";
        const QByteArray green = "<rect width='40' height='20' fill='lime'/>", box = " width='40' height='20'/>";
        QTest::newRow("empty drawing") << "e.svg" << QByteArray() << "empty";
        QTest::newRow("cut drawing") << "c.svg" << svg(green).left(70) << "cannot be read";
        QTest::newRow("entity bomb") << "b.svg" << svg("<title>&a11;</title>", laughs + "]>") << "cannot be read";
        QTest::newRow("no size") << "n.svg" << QByteArray("<svg xmlns='http://www.w3.org/2000/svg'/>") << "no size";
        QTest::newRow("huge png") << "h.png" << hugePng() << "64 megapixels";
        QTest::newRow("cut png") << "c.png" << png(Qt::red, {64, 64}).chopped(30) << "cut short";
        QTest::newRow("drawing named png") << "s.png" << svg(green) << "no PNG";
        QTest::newRow("image, relative") << "0.svg" << svg(green + "<image href='../out.png'" + box) << "#00ff00 #00ff00 #00ff00";
        QTest::newRow("image, file url") << "0.svg" << svg(green + "<image xlink:href='file://OUT/out.png'" + box) << "#00ff00 #00ff00 #00ff00";
        QTest::newRow("image, network") << "0.svg" << svg(green + "<image href='http://127.0.0.1:PORT/out.png'" + box) << "#00ff00 #00ff00 #00ff00";
        QTest::newRow("use of a drawing") << "0.svg" << svg(green + "<use href='../out.svg#all'/>") << "#00ff00 #00ff00 #00ff00";
        QTest::newRow("css import") << "0.svg" << svg("<style>@import url(../out.css);</style><rect class='all' fill='lime'" + box) << "#00ff00 #00ff00 #00ff00";
        QTest::newRow("xinclude") << "0.svg" << svg(green + "<xi:include xmlns:xi='http://www.w3.org/2001/XInclude' href='../out.svg'/>") << "#00ff00 #00ff00 #00ff00";
        QTest::newRow("gradient") << "0.svg" << svg("<linearGradient id='g'><stop stop-color='red'/><stop offset='1' stop-color='blue'/>"
                                                    "</linearGradient><rect fill='url(#g)'" + box) << "#ff0000 #af0050 #800080";
        QTest::newRow("mask") << "0.svg" << svg("<mask id='m'><rect width='16' height='20' fill='white'/></mask>"
                                                "<rect fill='red' mask='url(#m)'" + box) << "#ff0000 #ff0000 #ffffff";
        QTest::newRow("blur") << "0.svg" << svg("<filter id='b' x='-1' width='3'><feGaussianBlur stdDeviation='4'/></filter>"
                                                "<rect x='15' width='10' height='20' filter='url(#b)'/>") << "#ffffff #bcbcbc #393939";
        QTest::newRow("title") << "0.svg" << svg("<title> Golden\n crown </title>") << "#ffffff #ffffff #ffffff Golden crown";
        QTest::newRow("css, opacity") << "0.svg" << svg("<style>rect { fill: red; opacity: 0.5 }</style><rect" + box) << "#ff8080 #ff8080 #ff8080";
    }
    void oneFile()
    {
        QFETCH(QString, name);
        QFETCH(QByteArray, bytes);
        QFETCH(QString, result);
        QTemporaryDir dir;
        QTcpServer network;
        QVERIFY(network.listen(QHostAddress::LocalHost));
        bytes.replace("OUT", dir.path().toUtf8()).replace("PORT", QByteArray::number(network.serverPort()));
        QDir(dir.path()).mkdir("symbols");
        for (const auto& [file, content] : {std::pair{QString("out.png"), png(Qt::red)}, {"out.css", ".all { fill: red }"},
                                            {"out.svg", svg("<rect id='all' width='40' height='20' fill='red'/>")},
                                            {"symbols/" + name, bytes}})
            write(dir.filePath(file), content);
        QElapsedTimer clock;
        clock.start();
        const pictures::Loaded loaded = pictures::loadPicture(dir.filePath("symbols/" + name));
        QVERIFY(clock.elapsed() < 2000);
        QVERIFY(!network.waitForNewConnection(100));
        if (!result.startsWith('#')) {
            QVERIFY2(!loaded.picture && loaded.why.contains(result), qPrintable(loaded.why));
            return;
        }
        QVERIFY2(loaded.picture, qPrintable(loaded.why));
        QCOMPARE(loaded.picture->title(), result.section(' ', 3, -1));
        const QList<QColor> colours = seen(*loaded.picture);
        for (int i = 0; i < 3; ++i) {
            const QColor want(result.section(' ', i, i)), at = colours[i];
            const int off = std::abs(at.red() - want.red()) + std::abs(at.green() - want.green()) + std::abs(at.blue() - want.blue());
            QVERIFY2(off < 60, qPrintable(at.name() + " at " + QString::number(i)));
        }
    }
};

QTEST_MAIN(PictureFilesTest)
#include "picture_files_test.moc"
