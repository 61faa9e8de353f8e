// Settling a spin on the window: the arithmetic comes from settle(); this
// shows it in order — winning lines, the paid credits, the flashes (twice on
// a jackpot), the refilled bank, the net result — and hands the controls back.
#include "game/reel_surface.h"
#include "game/slot.h"
#include "game/slot_machine.h"
#include "platform/caption_button.h"
#include "rules/settlement.h"

#include <QLabel>
#include <QLineEdit>

namespace {
QString amountText(Currency c) { return QString::fromStdString(c.text()); }
}

void slot_machine::calculatepayoff()
{
    const Settlement s = settle(Text3->text().toStdString(), lines, slot::creditsperline, bothways, symbol);
    slot::bank = readBank(Text3->text().toStdString()) - s.bet;
    winning = s.runCells;

    Linem.hide(1, 29);
    winright = s.winright;
    winleft = s.winleft;
    for (int k : s.displaylineCalls)
        displayline(k);
    surface->segmentsChanged();

    auto afterStrobes = [this, s] { settleRest(s); };
    auto afterFirst = [this, s, afterStrobes] {
        if (!s.jackpot) {
            afterStrobes();
            return;
        }
        for (int i = 1; i <= 15; ++i)
            winning[i] = true;
        strobe(afterStrobes);
    };
    if (s.paid) {
        slot::bank = slot::bank + s.totalpaid;
        Text1->setText(amountText(s.totalpaid));
        strobe(afterFirst);
    } else {
        Text1->setText(QStringLiteral("0"));
        afterFirst();
    }
}

void slot_machine::settleRest(const Settlement& s)
{
    slot::bank = s.bank;
    Text3->setText(amountText(s.bank));
    Text5->setText(amountText(s.net));
    QPalette p = Text5->palette();
    p.setColor(QPalette::Text, s.netLoss ? QColor(255, 0, 0) : QColor(0, 0, 0));
    Text5->setPalette(p);
    Label1->setText(s.netLoss ? QStringLiteral("NET LOSS") : QStringLiteral("NET GAIN"));
    setControlsLocked(false);
    Command1->setFocus();
    emit settled();
}
