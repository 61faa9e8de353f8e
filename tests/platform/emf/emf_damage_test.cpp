// SPDX-License-Identifier: GPL-2.0-or-later
// Files that are missing, foreign, cut short or have a damaged header cannot
// be loaded; damaged records cost only what they would have drawn; and
// nothing any byte sequence contains crashes or hangs the decoder.
#include "tests/platform/emf/emf_test_support.h"

#include <QtTest>

#include <cstring>
#include <vector>

namespace {

QByteArray goodPicture()
{
    return writeEmf(73, 73, [](EmfWriter& e) {
        blackFill(e);
        e.rectangle({10, 10, 30, 30});
        e.polygon({point32_set(40, 40), point32_set(60, 40), point32_set(50, 60)});
        e.polyPolygon({{point32_set(0, 0), point32_set(5, 0), point32_set(5, 5)},
                       {point32_set(9, 9), point32_set(12, 9), point32_set(12, 12)}});
    });
}

quint32 word(const QByteArray& b, qsizetype at)
{
    quint32 v = 0;
    if (at >= 0 && at + 4 <= b.size())
        std::memcpy(&v, b.constData() + at, 4);
    return v;
}

void setWord(QByteArray& b, qsizetype at, quint32 v)
{
    std::memcpy(b.data() + at, &v, 4);
}

// Offset of the first record of the given type.
qsizetype recordAt(const QByteArray& b, quint32 type)
{
    for (qsizetype at = 0; at + 8 <= b.size() && word(b, at + 4) >= 8; at += word(b, at + 4))
        if (word(b, at) == type)
            return at;
    return -1;
}

// The picture again with a header of `fixed` bytes (88, 100 or 108) followed
// by a description of `chars` UTF-16 characters and `pixelFormat` bytes.
QByteArray withHeader(const QByteArray& b, int fixed, int chars, int pixelFormat)
{
    const qsizetype oldSize = word(b, 4);
    QByteArray header = b.left(fixed);
    header.append(QByteArray((2 * chars + 3) / 4 * 4, 'd'));
    const qsizetype pixelAt = header.size();
    header.append(QByteArray(pixelFormat, '\0'));
    setWord(header, 4, quint32(header.size()));
    setWord(header, offsetof(U_EMRHEADER, nDescription), quint32(chars));
    setWord(header, offsetof(U_EMRHEADER, offDescription), chars ? quint32(fixed) : 0);
    if (fixed >= 100) {
        setWord(header, offsetof(U_EMRHEADER, cbPixelFormat), quint32(pixelFormat));
        setWord(header, offsetof(U_EMRHEADER, offPixelFormat), pixelFormat ? quint32(pixelAt) : 0);
    }
    QByteArray out = header + b.mid(oldSize);
    setWord(out, offsetof(U_EMRHEADER, nBytes), quint32(out.size()));
    return out;
}

struct Damage {
    const char* name;
    std::function<void(QByteArray&)> apply;
    const char* drawn;  // "RPQ" less the shapes lost; "" when refused
};

const std::vector<Damage>& damages()
{
    // The header and the stated length decide whether a file loads at all;
    // past them a record that does not fit is passed over, and one whose
    // size breaks the chain of records ends the picture.
    static const std::vector<Damage> list = {
        {"wrong signature", [](QByteArray& b) { setWord(b, offsetof(U_EMRHEADER, dSignature), 0x464D4521); }, ""},
        {"header is not first", [](QByteArray& b) { setWord(b, 0, U_EMR_EOF); }, ""},
        {"length beyond the data", [](QByteArray& b) { setWord(b, offsetof(U_EMRHEADER, nBytes), quint32(b.size() + 4)); }, ""},
        {"length not in words", [](QByteArray& b) { setWord(b, offsetof(U_EMRHEADER, nBytes), quint32(b.size() - 2)); }, ""},
        {"empty frame", [](QByteArray& b) { setWord(b, offsetof(U_EMRHEADER, rclFrame) + 8, 0); }, ""},
        {"reference device without size", [](QByteArray& b) { setWord(b, offsetof(U_EMRHEADER, szlMillimeters), 0); }, ""},
        {"reference device without height", [](QByteArray& b) { setWord(b, offsetof(U_EMRHEADER, szlDevice) + 4, 0); }, ""},
        {"no end-of-file record", [](QByteArray& b) {
             b.truncate(recordAt(b, U_EMR_EOF)); setWord(b, offsetof(U_EMRHEADER, nBytes), quint32(b.size())); }, "RPQ"},
        {"record size zero", [](QByteArray& b) { setWord(b, recordAt(b, U_EMR_RECTANGLE) + 4, 0); }, "---"},
        {"record size not in words", [](QByteArray& b) { setWord(b, recordAt(b, U_EMR_POLYGON) + 4, 26); }, "R--"},
        {"record size past the end", [](QByteArray& b) { setWord(b, recordAt(b, U_EMR_POLYPOLYGON) + 4, 0x7ffffff8); }, "RP-"},
        {"object number past the table", [](QByteArray& b) {
             setWord(b, recordAt(b, U_EMR_SELECTOBJECT) + 8, word(b, offsetof(U_EMRHEADER, nHandles)) & 0xffff); }, "---"},
        {"unknown record type", [](QByteArray& b) { setWord(b, recordAt(b, U_EMR_RECTANGLE), 200); }, "-PQ"},
        {"second header", [](QByteArray& b) { setWord(b, recordAt(b, U_EMR_RECTANGLE), U_EMR_HEADER); }, "-PQ"},
        {"point count too large", [](QByteArray& b) { setWord(b, recordAt(b, U_EMR_POLYGON) + 24, 0xffffffff); }, "R-Q"},
        {"point count overflowing", [](QByteArray& b) { setWord(b, recordAt(b, U_EMR_POLYGON) + 24, 0x20000001); }, "R-Q"},
        {"polygon counts disagree", [](QByteArray& b) { setWord(b, recordAt(b, U_EMR_POLYPOLYGON) + 32, 2); }, "RP-"},
        {"polygon count too large", [](QByteArray& b) { setWord(b, recordAt(b, U_EMR_POLYPOLYGON) + 24, 0x40000000); }, "RP-"},
        {"pixel format outside the header", [](QByteArray& b) {
             b = withHeader(b, 108, 0, 40); setWord(b, offsetof(U_EMRHEADER, cbPixelFormat), 44); }, "RPQ"},
        {"description outside the header", [](QByteArray& b) {
             b = withHeader(b, 88, 2, 0); setWord(b, offsetof(U_EMRHEADER, nDescription), 1000); }, "RPQ"},
    };
    return list;
}

}  // namespace

class EmfDamageTest : public QObject {
    Q_OBJECT

private slots:
    void notMetafiles()
    {
        QVERIFY(!EmfPicture::fromBytes(QByteArray()));
        QVERIFY(!EmfPicture::fromBytes("hello, this is not a picture"));
        QVERIFY(!EmfPicture::fromBytes(QByteArray("\x89PNG\r\n\x1a\n", 8) + QByteArray(200, 'x')));
        QVERIFY(!EmfPicture::fromBytes(QByteArray(4096, '\0')));
        QVERIFY(!EmfPicture::load("no-such-picture.emf"));
        QTemporaryDir dir;
        QVERIFY(!EmfPicture::load(dir.path()));
    }

    void everyHeaderLayout()
    {
        // The oldest headers end at 88 bytes, and a description there is no
        // pixel format; newer ones have 100 or 108 bytes before what follows.
        const QByteArray good = goodPicture();
        const Ink expected = inkOf(renderNatural(*EmfPicture::fromBytes(good), 73, 73));
        const int layouts[][3] = {{88, 0, 0}, {88, 31, 0}, {88, 1, 0}, {100, 0, 0},
                                  {100, 12, 40}, {108, 0, 40}, {108, 20, 0}, {120, 0, 0}};
        for (const auto& l : layouts) {
            const auto picture = EmfPicture::fromBytes(withHeader(good, l[0], l[1], l[2]));
            QVERIFY2(picture, qPrintable(QString("%1 %2 %3").arg(l[0]).arg(l[1]).arg(l[2])));
            QCOMPARE(inkOf(renderNatural(*picture, 73, 73)).box, expected.box);
        }
    }

    void damagedStructure_data()
    {
        QTest::addColumn<int>("index");
        for (int i = 0; i < int(damages().size()); ++i)
            QTest::newRow(damages()[std::size_t(i)].name) << i;
    }

    void damagedStructure()
    {
        QFETCH(int, index);
        const Damage& damage = damages()[std::size_t(index)];
        QByteArray bytes = goodPicture();
        damage.apply(bytes);
        const auto picture = EmfPicture::fromBytes(bytes);
        QCOMPARE(bool(picture), *damage.drawn != '\0');
        if (!picture)
            return;
        const QImage image = renderNatural(*picture, 73, 73);
        const QPoint inside[] = {{20, 20}, {50, 45}, {4, 1}};  // rectangle, polygon, polyPolygon
        QString drawn;
        for (int i = 0; i < 3; ++i)
            drawn += darknessAt(image, inside[i].x(), inside[i].y()) > 0.5 ? QChar("RPQ"[i]) : QChar('-');
        QCOMPARE(drawn, QString(damage.drawn));
    }

    void everyTruncation()
    {
        const QByteArray bytes = goodPicture();
        for (qsizetype n = 0; n < bytes.size(); ++n)
            QVERIFY2(!EmfPicture::fromBytes(bytes.left(n)), qPrintable(QString::number(n)));
        // Trailing bytes after the stated length are not part of the picture.
        QVERIFY(EmfPicture::fromBytes(bytes + QByteArray(64, '\x7f')));
    }
};

QTEST_MAIN(EmfDamageTest)
#include "emf_damage_test.moc"
