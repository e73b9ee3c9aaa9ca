#include "app/MenuLook.h"

QString menuStyleSheet()
{
    return QStringLiteral(
        "QMenu { background: rgb(240,248,255); color: rgb(31,41,55); border: 1px solid rgb(184,202,226);"
        "        padding: 4px 0px; }"
        "QMenu::item { padding: 6px 24px 6px 16px; border: none; background: transparent; }"
        "QMenu::item:selected { background: rgb(206,224,255); }"
        "QMenu::item:disabled { color: rgb(140,152,168); }"
        "QMenu::icon { left: 8px; }"
        "QMenu::separator { height: 1px; background: rgb(208,221,238); margin: 4px 10px; }"
        "QMenu::right-arrow { width: 8px; height: 8px; padding-right: 8px; }");
}

QString checkMenuStyleSheet()
{
    return menuStyleSheet() + QStringLiteral("QMenu::item { padding-left: 28px; }"
                                             "QMenu::indicator { width: 14px; height: 14px; left: 8px; }");
}
