#pragma once

#include <QString>

// How our menus look: a light panel, the entry under the pointer on a soft blue. A style sheet for a QMenu,
// which its submenus share.
QString menuStyleSheet();
// The same for a menu of entries of which one is checked.
QString checkMenuStyleSheet();
