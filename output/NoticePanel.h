#pragma once

class QColor;
class QWidget;

// The ground that notices stand on: a rounded panel with a thin line around it, over the whole of a widget.
void paintNoticePanel(QWidget& widget, const QColor& background);
