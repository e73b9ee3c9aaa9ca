#pragma once

#include <QImage>

// An RGB32 image of undefined pixels, in huge pages where the system has them: the first touch of a large
// picture then costs a third. Its memory goes back to the system with its last copy. Null when there is none.
QImage imageInHugePages(QSize size);
