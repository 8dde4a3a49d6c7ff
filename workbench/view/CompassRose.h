// The compass in a corner of the 3-D view: which way north is, and how steeply one looks down.
#pragma once

#include <QPointF>
#include <QSizeF>

class QFont;
class QPainter;
class ViewCamera;

// Draws a ring lying on the ground around `center`, with a needle to the north and a pole up (+Z), as the camera sees
// them from afar, but never flatter than from 15 degrees. True north lies `north` degrees counter-clockwise of the
// drawing's y axis. The radius is in the painter's units.
void DrawCompassRose(QPainter& painter, const ViewCamera& camera, double north, const QPointF& center, double radius);

// How far from its centre it is drawn at most, to either side and up or down, wherever north is.
QSizeF ReachOfCompassRose(const QFont& font, double radius);
