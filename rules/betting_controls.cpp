// The betting controls: lines played, credits per line and their power of
// ten, one or both directions, and BET MAX, which sets the largest bet and
// spins.
#include "game/slot.h"
#include "game/slot_machine.h"
#include "platform/caption_button.h"

#include <QAction>
#include <QLineEdit>
#include <QSvgWidget>

#include <cmath>

namespace {
const QColor kYellow(255, 255, 0);
}

void slot_machine::showBet()
{
    Currency bet = slot::creditsperline * Currency::fromWhole(lines);
    if (bothways)
        bet = bet * Currency::fromWhole(2);
    Text2->setText(QString::fromStdString(bet.text()));
}

void slot_machine::Commandlines_Click(int index)
{
    for (int i = 1; i <= 5; ++i)
        Commandlines[i]->setFace(i == index ? kYellow : palette().color(QPalette::Window));
    play("chimes.wav");
    lines = 2 * index - 1;
    showBet();
    drawlines(lines);
    Command1->setFocus();
}

void slot_machine::Commandcre_Click(int index)
{
    for (int i = 1; i <= 10; ++i)
        Commandcre[i]->setFace(i == index ? kYellow : palette().color(QPalette::Window));
    play("clunk.wav", 3);
    slot::creditsperline = Currency::fromDouble(index * std::pow(10.0, creditscale));
    showBet();
    Command1->setFocus();
}

void slot_machine::Command3_Click()
{
    play("jackpot.wav");
    bothways = !bothways;
    if (bothways) {
        Picture3->show();
        Command3->setFace(kYellow);
        Command3->setText(QStringLiteral("win one direction ------->"));
        Command3->setAccessibleName(QStringLiteral("win one direction"));
    } else {
        Picture3->hide();
        Command3->setText(QStringLiteral("win both directions <---------->"));
        Command3->setAccessibleName(QStringLiteral("win both directions"));
        Command3->setFace(palette().color(QPalette::Window));
    }
    showBet();
    Command1->setFocus();
}

void slot_machine::Command6_Click()
{
    slot::creditsperline = Currency::fromWhole(10);
    lines = 9;
    Text2->setText(QStringLiteral("180"));
    if (!bothways)
        Command3_Click();
    Commandcre_Click(10);
    Commandlines_Click(5);
    Command1_Click();
    Command1->setFocus();
}

namespace {
void captionCreditButtons(std::array<CaptionButton*, 11>& buttons, int creditscale)
{
    for (int i = 1; i <= 10; ++i) {
        const QString caption =
            QString::number(static_cast<qint64>(std::llround(i * std::pow(10.0, creditscale)))) +
            QStringLiteral(" credits per line");
        buttons[i]->setText(caption);
        buttons[i]->setAccessibleName(caption);
    }
}
}

// One more power of ten on every credits button. It stops at the scale where
// the largest win of a spin would still fit the currency.
void slot_machine::times_Click()
{
    if (creditscale >= kMaxCreditScale)
        return;
    slot::creditsperline = slot::creditsperline.times10();
    showBet();
    ++creditscale;
    captionCreditButtons(Commandcre, creditscale);
    if (creditscale >= 1)
        divides->setEnabled(true);
    times->setEnabled(creditscale < kMaxCreditScale);
}

void slot_machine::divides_Click()
{
    if (creditscale <= 0)
        return;
    slot::creditsperline = slot::creditsperline.dividedBy10();
    showBet();
    --creditscale;
    captionCreditButtons(Commandcre, creditscale);
    if (creditscale <= 0)
        divides->setEnabled(false);
    times->setEnabled(creditscale < kMaxCreditScale);
}
