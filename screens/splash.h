#pragma once
// The first window: a picture with the game's title and version. It creates
// the main window while it is on screen and closes itself three seconds later.
#include <QWidget>

#include <memory>

class QLabel;
class QTimer;
class slot_machine;
class EmfPicture;

class frmSplash : public QWidget {
public:
    frmSplash();
    ~frmSplash() override;

    // Shows the splash and starts the game. False when the game cannot start
    // (a picture it needs is missing); the player has been told which.
    bool Form_Load();

    QLabel* lblProductname = nullptr;
    QLabel* lblVersion = nullptr;
    QTimer* Timer2 = nullptr;
    slot_machine* mainWindow() const { return main_; }

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    void Timer2_Timer();

    std::unique_ptr<EmfPicture> background_;
    slot_machine* main_ = nullptr;
};
