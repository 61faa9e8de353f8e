// SPDX-License-Identifier: GPL-2.0-or-later
#include "screens/splash.h"

#include "platform/emf/emf_picture.h"
#include "platform/window_helpers.h"

#include <QCoreApplication>
#include <QLabel>
#include <QPainter>
#include <QTimer>

namespace {
QLabel* whiteLabel(QWidget* parent, const QString& name, int left, int top, int width, int height)
{
    auto* l = new QLabel(parent);
    l->setObjectName(name);
    l->setFont(win::courierBold(18));
    QPalette p = l->palette();
    p.setColor(QPalette::WindowText, Qt::white);
    l->setPalette(p);
    l->setAlignment(Qt::AlignLeft | Qt::AlignTop);
    l->setGeometry(QRectF(win::twips(left), win::twips(top), win::twips(width), win::twips(height)).toRect());
    return l;
}
}

SplashScreen::SplashScreen()
    : QWidget(nullptr, Qt::SplashScreen | Qt::FramelessWindowHint | Qt::WindowStaysOnTopHint)
{
    setAttribute(Qt::WA_DeleteOnClose);
    setFixedSize(QSizeF(win::twips(6780), win::twips(6345)).toSize());
    setWindowTitle(QStringLiteral("reelmoor"));
    if (auto picture = EmfPicture::load(QStringLiteral("splash.emf")))
        background_ = std::make_unique<EmfPicture>(std::move(*picture));
    titleLabel_ = whiteLabel(this, QStringLiteral("titleLabel"), 2880, 5640, 1335, 375);
    versionLabel_ = whiteLabel(this, QStringLiteral("versionLabel"), 1920, 6000, 3495, 615);
    closeTimer_ = new QTimer(this);
    closeTimer_->setSingleShot(true);
    connect(closeTimer_, &QTimer::timeout, this, &QWidget::close);
}

SplashScreen::~SplashScreen() = default;

void SplashScreen::showWithVersion()
{
    versionLabel_->setText(QStringLiteral("Version %1.%2.%3")
                               .arg(REELMOOR_VERSION_MAJOR)
                               .arg(REELMOOR_VERSION_MINOR)
                               .arg(REELMOOR_VERSION_PATCH));
    titleLabel_->setText(QStringLiteral("reelmoor"));
    // The title is wider than its designed box in this font; let it show whole.
    titleLabel_->resize(std::max(titleLabel_->width(), titleLabel_->sizeHint().width()), titleLabel_->height());
    win::centreOnScreen(this);
    show();
    QCoreApplication::processEvents();
    closeTimer_->start(3000);
}

void SplashScreen::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    painter.fillRect(rect(), Qt::black);
    if (background_) {
        painter.setRenderHint(QPainter::Antialiasing);
        background_->paintNatural(painter);
    }
}
