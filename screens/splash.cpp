#include "screens/splash.h"

#include "game/slot_machine.h"
#include "platform/emf/emf_picture.h"
#include "platform/window_helpers.h"

#include <QCoreApplication>
#include <QDir>
#include <QLabel>
#include <QPainter>
#include <QTimer>

namespace {
QLabel* whiteLabel(QWidget* parent, int left, int top, int width, int height)
{
    auto* l = new QLabel(parent);
    l->setFont(win::courierBold(18));
    QPalette p = l->palette();
    p.setColor(QPalette::WindowText, Qt::white);
    l->setPalette(p);
    l->setAlignment(Qt::AlignLeft | Qt::AlignTop);
    l->setGeometry(QRectF(win::twips(left), win::twips(top), win::twips(width), win::twips(height)).toRect());
    return l;
}
}

frmSplash::frmSplash()
    : QWidget(nullptr, Qt::SplashScreen | Qt::FramelessWindowHint | Qt::WindowStaysOnTopHint)
{
    setAttribute(Qt::WA_DeleteOnClose);
    setFixedSize(QSizeF(win::twips(6780), win::twips(6345)).toSize());
    setWindowTitle(QStringLiteral("reelmoor"));
    if (auto picture = EmfPicture::load(QStringLiteral("splash.emf")))
        background_ = std::make_unique<EmfPicture>(std::move(*picture));
    lblProductname = whiteLabel(this, 2880, 5640, 1335, 375);
    lblVersion = whiteLabel(this, 1920, 6000, 3495, 615);
    Timer2 = new QTimer(this);
    Timer2->setSingleShot(true);
    connect(Timer2, &QTimer::timeout, this, [this] { Timer2_Timer(); });
}

frmSplash::~frmSplash() = default;

bool frmSplash::Form_Load()
{
    lblVersion->setText(QStringLiteral("Version %1.%2.%3")
                            .arg(REELMOOR_VERSION_MAJOR)
                            .arg(REELMOOR_VERSION_MINOR)
                            .arg(REELMOOR_VERSION_PATCH));
    lblProductname->setText(QStringLiteral("reelmoor"));
    // The title is wider than its designed box in this font; let it show whole.
    lblProductname->resize(std::max(lblProductname->width(), lblProductname->sizeHint().width()),
                           lblProductname->height());
    win::centreOnScreen(this);
    show();
    QCoreApplication::processEvents();
    Timer2->start(3000);

    main_ = new slot_machine;
    raise();  // the main window opens behind the splash
    if (!main_->startupError().isEmpty()) {
        const QString file = main_->startupError();
        delete main_;
        main_ = nullptr;
        hide();
        win::showMessage(nullptr, QStringLiteral("reelmoor"),
                         QStringLiteral("reelmoor cannot start: the picture file \"%1\" is missing or cannot be read "
                                        "in the folder %2.")
                             .arg(file, QDir::currentPath()));
        return false;
    }
    return true;
}

void frmSplash::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    painter.fillRect(rect(), Qt::black);
    if (background_) {
        painter.setRenderHint(QPainter::Antialiasing);
        background_->paintNatural(painter);
    }
}

void frmSplash::Timer2_Timer() { close(); }
