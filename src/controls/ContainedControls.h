#pragma once

#include "controls/PanelLayout.h"

#include <QRect>

#include <map>
#include <vector>

class QObject;
class QWidget;

// The controls that a host placed on a panel's surface. Their places are kept in twips, so that scrolling to
// and fro brings each back to its pixel; one that the host moved by itself is taken where it is now. Left is
// where lines of text begin: the right edge when layouts run right to left.
class ContainedControls {
public:
    explicit ContainedControls(QWidget& surface) : m_surface(surface) {}

    std::vector<QWidget*> List() const;  // in the order of their placing
    bool Contains(const QWidget* control) const;
    void Exclude(const QWidget* part) { m_parts.push_back(part); }  // a part of the panel itself
    void Forget(const QObject* control) { m_places.erase(control); }

    void Place(QWidget& control, const PanelRect& twips);
    PanelRect PlaceOf(const QWidget& control);
    std::vector<PanelRect> Places();
    void MoveBy(double twipsX, double twipsY);

    // The surface's width was something else when controls were last placed.
    void SurfaceResized(int oldWidth);
    void Flip();  // the surface's layout direction changed

private:
    struct Known {
        QRect pixels;
        PanelRect twips;
    };

    Known& Look(const QWidget& control, int surfaceWidth);
    void Show(QWidget& control, Known& known);
    QRect Mirrored(const QRect& pixels, int surfaceWidth) const;

    QWidget& m_surface;
    std::vector<const QWidget*> m_parts;
    std::map<const QObject*, Known> m_places;
};
