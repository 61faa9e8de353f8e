#pragma once
// Measures for comparing grabs of the same scene at different pixel ratios.
#include <QColor>
#include <QImage>
#include <QRect>

#include <algorithm>
#include <cmath>
#include <vector>

namespace measure {

inline int grey(QRgb c) { return (qRed(c) * 299 + qGreen(c) * 587 + qBlue(c) * 114) / 1000; }

// Sum of squared steps between neighbouring pixels, per pixel of the
// region. A sharp edge puts its whole step between two pixels; the same edge
// blown up from fewer pixels spreads it over several, and the squares fall.
inline double gradientEnergy(const QImage& image, const QRect& region)
{
    const QImage g = image.convertToFormat(QImage::Format_RGB32);
    const QRect r = region.intersected(g.rect().adjusted(0, 0, -1, -1));
    double sum = 0;
    for (int y = r.top(); y <= r.bottom(); ++y)
        for (int x = r.left(); x <= r.right(); ++x) {
            const int here = grey(g.pixel(x, y));
            const double dx = grey(g.pixel(x + 1, y)) - here;
            const double dy = grey(g.pixel(x, y + 1)) - here;
            sum += dx * dx + dy * dy;
        }
    return r.isEmpty() ? 0 : sum / (double(r.width()) * r.height());
}

// Mean absolute difference of grey per row of two images of one size.
inline std::vector<double> rowDifferences(const QImage& a, const QImage& b)
{
    const QImage x = a.convertToFormat(QImage::Format_RGB32);
    const QImage y = b.convertToFormat(QImage::Format_RGB32);
    std::vector<double> rows;
    for (int r = 0; r < std::min(x.height(), y.height()); ++r) {
        double sum = 0;
        for (int c = 0; c < std::min(x.width(), y.width()); ++c)
            sum += std::abs(grey(x.pixel(c, r)) - grey(y.pixel(c, r)));
        rows.push_back(sum / std::max(1, std::min(x.width(), y.width())));
    }
    return rows;
}

inline double worst(const std::vector<double>& v) { return v.empty() ? 0 : *std::max_element(v.begin(), v.end()); }

inline double mean(const std::vector<double>& v)
{
    double s = 0;
    for (double d : v)
        s += d;
    return v.empty() ? 0 : s / double(v.size());
}

// A part of an image given in logical pixels, taken at the image's ratio
// and scaled to size (smoothly).
inline QImage logicalPart(const QImage& image, const QRectF& logical, const QSize& size)
{
    const double r = image.devicePixelRatio();
    const QRect device(QPoint(int(std::lround(logical.left() * r)), int(std::lround(logical.top() * r))),
                       QSize(int(std::lround(logical.width() * r)), int(std::lround(logical.height() * r))));
    QImage part = image.copy(device);
    part.setDevicePixelRatio(1);
    return part.scaled(size, Qt::IgnoreAspectRatio, Qt::SmoothTransformation);
}

inline bool near(QColor a, QColor b, int tolerance = 8)
{
    return std::abs(a.red() - b.red()) <= tolerance && std::abs(a.green() - b.green()) <= tolerance &&
           std::abs(a.blue() - b.blue()) <= tolerance;
}
}
