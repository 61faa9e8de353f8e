// SPDX-License-Identifier: GPL-2.0-or-later
#include "game/reel_cells_accessible.h"

#include "game/reel_surface.h"

#include <QAccessibleWidget>
#include <QPointer>
#include <QWindow>

#include <array>

namespace {

// One cell: an image without children, where the surface paints it.
class CellInterface : public QAccessibleInterface {
public:
    CellInterface(ReelSurface* surface, int cell) : surface_(surface), cell_(cell) {}

    bool isValid() const override { return surface_; }
    QObject* object() const override { return nullptr; }
    QWindow* window() const override { return surface_->window()->windowHandle(); }
    QAccessibleInterface* parent() const override { return QAccessible::queryAccessibleInterface(surface_); }
    QAccessibleInterface* child(int) const override { return nullptr; }
    int childCount() const override { return 0; }
    int indexOfChild(const QAccessibleInterface*) const override { return -1; }
    QAccessibleInterface* childAt(int, int) const override { return nullptr; }
    QAccessible::Role role() const override { return QAccessible::Graphic; }
    QAccessible::State state() const override
    {
        QAccessible::State s;
        s.invisible = !surface_->isVisible();
        return s;
    }
    QString text(QAccessible::Text t) const override
    {
        return t == QAccessible::Name ? surface_->cellName(cell_) : QString();
    }
    void setText(QAccessible::Text, const QString&) override {}
    QRect rect() const override
    {
        // Rounded as the surface rounds the corner it paints the picture at.
        const QRect r = surface_->cellRect(cell_).toRect();
        return QRect(surface_->mapToGlobal(r.topLeft()), r.size());
    }

private:
    QPointer<ReelSurface> surface_;
    int cell_;
};

class SurfaceInterface : public QAccessibleWidget {
public:
    explicit SurfaceInterface(ReelSurface* surface) : QAccessibleWidget(surface, QAccessible::Client) {}
    ~SurfaceInterface() override
    {
        for (const QAccessible::Id id : cells_)
            if (id)
                QAccessible::deleteAccessibleInterface(id);
    }

    int childCount() const override { return kCells + QAccessibleWidget::childCount(); }
    QAccessibleInterface* child(int index) const override
    {
        if (index >= kCells)
            return QAccessibleWidget::child(index - kCells);
        if (index < 0)
            return nullptr;
        QAccessible::Id& id = cells_[static_cast<std::size_t>(index)];
        if (!id)
            id = QAccessible::registerAccessibleInterface(
                new CellInterface(static_cast<ReelSurface*>(widget()), index));
        return QAccessible::accessibleInterface(id);
    }
    int indexOfChild(const QAccessibleInterface* child) const override
    {
        for (int i = 0; i < kCells; ++i) {
            const QAccessible::Id id = cells_[static_cast<std::size_t>(i)];
            if (id && QAccessible::accessibleInterface(id) == child)
                return i;
        }
        const int control = QAccessibleWidget::indexOfChild(child);
        return control < 0 ? -1 : kCells + control;
    }

private:
    mutable std::array<QAccessible::Id, kCells> cells_{};
};

}  // namespace

QAccessibleInterface* reelCellsAccessible(const QString&, QObject* object)
{
    auto* surface = dynamic_cast<ReelSurface*>(object);
    return surface ? new SurfaceInterface(surface) : nullptr;
}
