#pragma once

class QImage;

// The picture under a Gaussian of `sigma` pixels, within 1.2 levels of the exact one; as large as before.
// Beyond its edges the picture is transparent, and what the blur leaves uncovered there shows the picture as
// it was. The result is Format_RGB32, or ARGB32_Premultiplied where the picture has an alpha channel. A sigma
// under 1 returns the picture as it is; null when there is no memory for the result. At most `threads`
// threads, one or two, share the work on a large picture.
QImage gaussianBlurred(const QImage& picture, double sigma, int threads = 2);
