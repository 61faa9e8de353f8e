// The window's first playable state: 2500 credits, one line and one credit
// per line chosen, line 1 drawn, fifteen random symbols at rest, SPIN focused.
#include "game/slot.h"
#include "game/slot_machine.h"
#include "platform/caption_button.h"

#include <QLineEdit>

void slot_machine::display()
{
    const QColor yellow(255, 255, 0);
    Text3->setText(QString::number(kStartingBank));
    Text1->show();
    Command1->show();
    Commandlines[1]->setFace(yellow);
    Commandcre[1]->setFace(yellow);
    lines = 1;
    slot::creditsperline = Currency::fromWhole(1);
    Text1->setText(QStringLiteral("0"));
    Text3->show();
    show();
    drawlines(1);
    Command1->setFocus();
    loadimages();
}
