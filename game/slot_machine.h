#pragma once
// The main window: the grid of fifteen reels, the pay lines over it, the bet
// and result boxes, the betting buttons and the "&file" menu. It owns the
// whole state of a game. Its routines are spread over the folders of the
// subsystems they belong to (symbols and the spin here, settling and betting
// in rules/, pay-line drawing and the strobe in presentation/).
#include "platform/sound/media_player.h"
#include "presentation/segment_pool.h"
#include "rules/currency.h"
#include "rules/settlement.h"

#include <QImage>
#include <QMainWindow>

#include <array>
#include <functional>
#include <vector>

class CaptionButton;
class QAction;
class QLabel;
class QLineEdit;
class QMenu;
class QSvgWidget;
class QTimer;
class ReelSurface;

class slot_machine : public QMainWindow {
    Q_OBJECT

public:
    // Runs the whole start-up; the window shows itself at its end. When a
    // picture the game cannot do without is missing, start-up stops and
    // startupError() names the file.
    explicit slot_machine(QWidget* parent = nullptr);
    ~slot_machine() override;
    const QString& startupError() const { return startupError_; }

    // The window's routines.
    void display();
    void loadimages();
    void loadrand();
    void calculatepayoff();
    void drawlines(int n);
    void displayline(int k);
    void strobe(std::function<void()> done);

    // What the player does.
    void Command1_Click();
    void Timera_Timer(int index);
    void Commandlines_Click(int index);
    void Commandcre_Click(int index);
    void Command3_Click();
    void Command6_Click();
    void times_Click();
    void divides_Click();
    void starter_Click();
    void newor_Click();
    void exitor_Click();
    void displayer_Click();

    // The state of the game.
    std::array<int, 16> cell{};
    std::array<int, 16> symbol{};
    std::array<bool, 16> stopped{};
    std::array<int, 16> step{};
    std::array<bool, 16> winning{};
    bool spinning = false;
    int lines = 0;
    bool bothways = false;
    int creditscale = 0;
    bool winright = false;
    bool winleft = false;

    // The controls.
    ReelSurface* surface = nullptr;
    SegmentPool Linem;
    CaptionButton* Command1 = nullptr;
    CaptionButton* Command3 = nullptr;
    CaptionButton* Command6 = nullptr;
    std::array<CaptionButton*, 6> Commandlines{};
    std::array<CaptionButton*, 11> Commandcre{};
    QLineEdit* Text1 = nullptr;
    QLineEdit* Text2 = nullptr;
    QLineEdit* Text3 = nullptr;
    QLineEdit* Text5 = nullptr;
    QLabel* Label1 = nullptr;
    QLabel* Label2 = nullptr;
    QLabel* Label3 = nullptr;
    QLabel* Label5 = nullptr;
    QSvgWidget* Picture2 = nullptr;
    QSvgWidget* Picture3 = nullptr;
    QMenu* filer = nullptr;
    QAction* times = nullptr;
    QAction* divides = nullptr;
    QAction* starter = nullptr;
    QAction* newor = nullptr;
    QAction* exitor = nullptr;
    QAction* displayer = nullptr;
    std::array<QTimer*, 16> Timera{};
    MediaPlayer MediaPlayer1;

    // Hidden pictures: the symbols, their twelve frames each, the strobe's blank.
    std::vector<QImage> Pic1arr;
    std::vector<QImage> Image2;
    QImage Picture1;

    // Gives cell i the picture p.
    void setImage1(int i, const QImage& p);

    // Plays a sound file count times on the media player ("" stops it).
    void play(const char* file, int count = 1);
    // Sounds the alert; counts them for whoever checks a spin.
    void beep();
    int beepsSounded() const { return beeps_; }

    // The highest credits-per-line scale "credits times 10" reaches: one more
    // and the largest win of a spin would no longer fit the currency.
    static constexpr int kMaxCreditScale = 8;

    // Symbol buffers, frame pictures and cells are this many pixels square.
    static constexpr int kSymbolSize = 73;
    static constexpr int kFrames = 12;

signals:
    // The settlement of a spin has ended and the controls are back.
    void settled();
    // One pass of the reels has been drawn.
    void passDone();

protected:
    void closeEvent(QCloseEvent* event) override;

private:
    void buildDesign();
    void buildMenu();
    void layOutButtons();
    bool loadSymbolPictures();
    void placeCells();
    void paintReelBackground();
    void buildFramePictures();
    void setControlsLocked(bool locked);
    void showBet();
    void pass();
    void finishSpin();
    void settleRest(const Settlement& s);
    void strobeStep();
    void stopEverything();

    QString startupError_;
    QTimer* passTimer_ = nullptr;
    QTimer* strobeTimer_ = nullptr;
    QTimer* audioRest_ = nullptr;  // lets the audio device rest once all is quiet
    struct StrobeRun {
        int cyclesLeft = 0;
        bool blank = false;
        std::function<void()> done;
    } strobeRun_;
    bool closingScreenShown_ = false;
    double dpr_ = 1.0;
    int beeps_ = 0;
};
