#pragma once

#include <QString>

// How our menus look: a light panel, the entry under the pointer on a soft blue. A style sheet for a QMenu,
// which its submenus share.
QString menuStyleSheet();
