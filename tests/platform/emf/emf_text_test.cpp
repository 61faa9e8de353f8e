// SPDX-License-Identifier: GPL-2.0-or-later
// Text lands where its alignment, advances, escapement and mapping put it,
// in the face that stands in for the one the picture names.
#include "tests/platform/emf/emf_test_support.h"

#include <QFont>
#include <QFontDatabase>
#include <QFontMetricsF>
#include <QPainterPath>
#include <QRawFont>
#include <QtTest>

#include <vector>

namespace {

constexpr double kEm = 20;  // the character height of the font the cases select

// Where a string's ink lies with its baseline's start at the origin, in
// the free face that stands in for Arial, `em` pixels high.
QFontMetricsF metrics(double em)
{
    QFont font(QStringLiteral("Liberation Sans"));
    font.setPixelSize(int(em));
    return QFontMetricsF(font);
}

QRectF inkAt(const QString& text, double x, double y, double em = kEm)
{
    return metrics(em).tightBoundingRect(text).translated(x, y);
}

double advanceOf(const QString& text)
{
    return metrics(kEm).horizontalAdvance(text);
}

// The font of kEm pixels selected, and text over a transparent background
// unless a case wants it opaque.
void textSetup(EmfWriter& e, std::uint32_t align, std::int32_t escapement = 0)
{
    e.select(e.font(-std::int32_t(kEm), escapement));
    e.add(U_EMRSETBKMODE_set(U_TRANSPARENT));
    e.add(U_EMRSETTEXTALIGN_set(align));
}

struct TextCase {
    const char* name;
    Drawing draw;
    QRectF box;         // where the ink should be, pixels
    double area = -1;   // its area when the case is about filled areas
};

const std::vector<TextCase>& textCases()
{
    const double ascent = metrics(kEm).ascent();
    const double descent = metrics(kEm).descent();
    const double cellEm = kEm * kEm / (ascent + descent);
    static const std::vector<TextCase> cases = {
        {"top left", [](EmfWriter& e) { textSetup(e, U_TA_TOP | U_TA_LEFT); e.text(P(10, 10), u"H"); },
         inkAt("H", 10, 10 + ascent)},
        {"baseline centre",
         [](EmfWriter& e) { textSetup(e, U_TA_BASELINE | U_TA_CENTER); e.text(P(50, 40), u"H"); },
         inkAt("H", 50 - advanceOf("H") / 2, 40)},
        {"a full stop, neither struck out nor underlined",
         [](EmfWriter& e) { textSetup(e, U_TA_BASELINE); e.text(P(10, 40), u"."); }, inkAt(".", 10, 40)},
        {"the symbol face's letters are Greek",
         [](EmfWriter& e) { textSetup(e, U_TA_BASELINE); e.select(e.font(-std::int32_t(kEm), 0, 400, u"Symbol")); e.text(P(10, 40), u"p"); },
         [] {  // pi, not p, in the face that answers to the name
             QFont face(QStringLiteral("Symbol"));
             face.setPixelSize(int(kEm));
             return QFontMetricsF(face).tightBoundingRect(QString(QChar(0x3c0))).translated(10, 40);
         }()},
        {"bottom right",
         [](EmfWriter& e) { textSetup(e, U_TA_BOTTOM | U_TA_RIGHT); e.text(P(90, 70), u"H"); },
         inkAt("H", 90 - advanceOf("H"), 70 - descent)},
        {"advances of the record",
         [](EmfWriter& e) { textSetup(e, U_TA_BASELINE); e.text(P(10, 40), u"HH", 0, {0, 0, -1, -1}, {50, 50}); },
         inkAt("H", 10, 40).united(inkAt("H", 60, 40))},
        {"current position moves on",
         [](EmfWriter& e) {
             textSetup(e, U_TA_BASELINE | U_TA_UPDATECP);
             e.moveTo(P(10, 40));
             e.text(P(0, 0), u"H", 0, {0, 0, -1, -1}, {40});
             e.text(P(0, 0), u"H", 0, {0, 0, -1, -1}, {40});
         },
         inkAt("H", 10, 40).united(inkAt("H", 50, 40))},
        {"turned a quarter counterclockwise",  // (x, y) -> (y, -x) from the reference point
         [](EmfWriter& e) { textSetup(e, U_TA_BASELINE, 900); e.text(P(40, 70), u"L"); },
         [] {
             const QRectF l = inkAt("L", 0, 0);
             return QRectF(40 + l.top(), 70 - l.right(), l.height(), l.width());
         }()},
        {"upright where y grows upward",
         [](EmfWriter& e) {
             e.add(U_EMRSETMAPMODE_set(U_MM_ANISOTROPIC));
             e.add(U_EMRSETWINDOWEXTEX_set({100, -80}));
             e.add(U_EMRSETVIEWPORTEXTEX_set({100, 80}));
             e.add(U_EMRSETWINDOWORGEX_set(P(0, 80)));
             textSetup(e, U_TA_BASELINE);
             e.text(P(10, 40), u"L");
         },
         inkAt("L", 10, 40)},
        {"cell height", [](EmfWriter& e) {
             e.select(e.font(std::int32_t(kEm)));
             e.add(U_EMRSETBKMODE_set(U_TRANSPARENT));
             e.add(U_EMRSETTEXTALIGN_set(U_TA_BASELINE));
             e.text(P(10, 40), u"H");
         },
         inkAt("H", 10, 40, cellEm)},
        {"clipped to its rectangle",
         [](EmfWriter& e) { textSetup(e, U_TA_BASELINE); e.text(P(10, 40), u"H", U_ETO_CLIPPED, {0, 0, 100, 32}); },
         inkAt("H", 10, 40).intersected(QRectF(0, 0, 100, 32))},
        {"outlines of a path",
         [](EmfWriter& e) {
             blackFill(e);
             textSetup(e, U_TA_BASELINE);
             e.add(U_EMRBEGINPATH_set());
             e.text(P(10, 40), u"H");
             e.add(U_EMRENDPATH_set());
             e.add(U_EMRFILLPATH_set({0, 0, 100, 80}));
         },
         inkAt("H", 10, 40)},
        {"opaque rectangle without text",
         [](EmfWriter& e) {
             e.add(U_EMRSETBKCOLOR_set(rgb(0, 0, 0)));
             e.text(P(0, 0), u"", U_ETO_OPAQUE, {10, 10, 40, 30});
         },
         QRectF(10, 10, 30, 20), 600},
        {"opaque background behind the text",
         [](EmfWriter& e) {
             e.select(e.font(-std::int32_t(kEm)));
             e.add(U_EMRSETBKCOLOR_set(rgb(0, 0, 0)));
             e.text(P(10, 10), u"H", 0, {0, 0, -1, -1}, {30});
         },
         QRectF(10, 10, 30, ascent + descent), 30 * (ascent + descent)},
        {"a character no installed face has",  // the face's hollow missing-glyph box
         [](EmfWriter& e) { textSetup(e, U_TA_BASELINE); e.text(P(10, 40), u"\u09AC"); },
         [] {
             if (!QFontDatabase::families(QFontDatabase::Bengali).isEmpty())
                 return QRectF();  // that face draws the character itself
             QRawFont face = QRawFont::fromFont(QFont(QStringLiteral("Liberation Sans")));
             face.setPixelSize(kEm);
             return face.pathForGlyph(0).boundingRect().translated(10, 40);
         }()},
    };
    return cases;
}

}  // namespace

class EmfTextTest : public QObject {
    Q_OBJECT

private slots:
    void textLandsWhereAligned_data()
    {
        QTest::addColumn<int>("index");
        for (int i = 0; i < int(textCases().size()); ++i)
            QTest::newRow(textCases()[std::size_t(i)].name) << i;
    }

    void textLandsWhereAligned()
    {
        QFETCH(int, index);
        const TextCase& c = textCases()[std::size_t(index)];
        if (c.box.isNull())
            QSKIP("a face for the script is installed");
        const auto picture = EmfPicture::fromBytes(writeEmf(100, 80, c.draw));
        QVERIFY(picture);
        const Ink ink = inkOf(renderNatural(*picture, 100, 80));
        const QRectF got(ink.box);
        const auto near = [](double a, double b) { return std::abs(a - b) <= 1.5; };
        QVERIFY2(near(got.left(), c.box.left()) && near(got.right(), c.box.right()) &&
                     near(got.top(), c.box.top()) && near(got.bottom(), c.box.bottom()),
                 qPrintable("ink " + QDebug::toString(got) + ", expected " + QDebug::toString(c.box)));
        if (c.area >= 0)
            QVERIFY2(std::abs(ink.area - c.area) <= std::max(3.0, c.area * 0.02),
                     qPrintable(QString("area %1, expected %2").arg(ink.area).arg(c.area)));
    }
};

QTEST_MAIN(EmfTextTest)
#include "emf_text_test.moc"
