#include "tests/app/TextFit.h"

#include <QAbstractButton>
#include <QLabel>

namespace {

bool isCut(const QWidget& widget, bool isWrapped)
{
    const QSize needed = isWrapped ? QSize(0, widget.heightForWidth(widget.width())) : widget.sizeHint();
    const QRect place(widget.mapTo(widget.window(), QPoint(0, 0)), widget.size());
    return needed.width() > widget.width() || needed.height() > widget.height() ||
           !widget.window()->rect().contains(place);
}

void add(TextFit& fit, const QString& text, bool cut)
{
    fit.texts << text;
    if (cut)
        fit.cut << text;
}

}

TextFit textFitOf(const QWidget& window)
{
    TextFit fit;
    for (const QLabel* label : window.findChildren<QLabel*>())
        if (!label->isHidden())
            add(fit, label->text(), isCut(*label, label->wordWrap()));
    for (const QAbstractButton* button : window.findChildren<QAbstractButton*>())
        if (!button->isHidden())
            add(fit, button->text(), isCut(*button, false));
    return fit;
}
