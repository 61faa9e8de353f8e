// SPDX-License-Identifier: GPL-2.0-or-later
#pragma once
// The first window: a picture with the game's title and version. The game
// starts while it is on screen; it closes itself three seconds later.
#include <QWidget>

#include <memory>

class QLabel;
class QTimer;
class EmfPicture;

class SplashScreen : public QWidget {
public:
    SplashScreen();
    ~SplashScreen() override;

    void showWithVersion();

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    QLabel* titleLabel_ = nullptr;
    QLabel* versionLabel_ = nullptr;
    QTimer* closeTimer_ = nullptr;
    std::unique_ptr<EmfPicture> background_;
};
