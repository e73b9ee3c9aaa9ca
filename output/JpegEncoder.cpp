#include "output/JpegEncoder.h"

#include <QImage>

#include <csetjmp>
#include <cstdio>

#include <jpeglib.h>

namespace {

constexpr int kQuality = 90;

// The library's ways out: an error comes back here instead of ending the program, and nothing is printed.
struct Errors : jpeg_error_mgr {
    std::jmp_buf back;
};

[[noreturn]] void comeBack(j_common_ptr jpeg)
{
    std::longjmp(static_cast<Errors*>(jpeg->err)->back, 1);
}

void keepQuiet(j_common_ptr)
{
}

// Where the library writes: one buffer, large enough for any picture of the size.
struct Destination : jpeg_destination_mgr {
    PageBuffer* pages;
};

void start(j_compress_ptr jpeg)
{
    auto* to = static_cast<Destination*>(jpeg->dest);
    to->next_output_byte = to->pages->data();
    to->free_in_buffer = to->pages->capacity();
}

boolean overflow(j_compress_ptr jpeg)
{
    comeBack(reinterpret_cast<j_common_ptr>(jpeg));
}

void finish(j_compress_ptr jpeg)
{
    auto* to = static_cast<Destination*>(jpeg->dest);
    to->pages->setSize(to->pages->capacity() - to->free_in_buffer);
}

void setParameters(jpeg_compress_struct& jpeg, const QImage& image)
{
    jpeg.image_width = JDIMENSION(image.width());
    jpeg.image_height = JDIMENSION(image.height());
    jpeg.input_components = 4;
    jpeg.in_color_space = JCS_EXT_BGRX;
    jpeg_set_defaults(&jpeg);
    jpeg_set_quality(&jpeg, kQuality, TRUE);
    for (int c = 0; c < jpeg.num_components; ++c)
        jpeg.comp_info[c].h_samp_factor = jpeg.comp_info[c].v_samp_factor = 1;
}

void writeRows(jpeg_compress_struct& jpeg, const QImage& image)
{
    while (jpeg.next_scanline < jpeg.image_height) {
        // The library's interface takes rows as writable and only reads them.
        JSAMPROW row = const_cast<JSAMPROW>(image.constScanLine(int(jpeg.next_scanline)));
        jpeg_write_scanlines(&jpeg, &row, 1);
    }
}

// No object with a destructor lives here: the library's errors jump over this frame's calls.
bool compress(const QImage& image, PageBuffer& pages)
{
    Errors errors;
    Destination destination;
    jpeg_compress_struct jpeg;
    jpeg.err = jpeg_std_error(&errors);
    errors.error_exit = comeBack;
    errors.output_message = keepQuiet;
    destination.pages = &pages;
    destination.init_destination = start;
    destination.empty_output_buffer = overflow;
    destination.term_destination = finish;
    jpeg_create_compress(&jpeg);
    jpeg.dest = &destination;

    const bool failed = setjmp(errors.back) != 0;
    if (!failed) {
        setParameters(jpeg, image);
        jpeg_start_compress(&jpeg, TRUE);
        writeRows(jpeg, image);
        jpeg_finish_compress(&jpeg);
    }
    jpeg_destroy_compress(&jpeg);
    return !failed;
}

} // namespace

PageBuffer JpegEncoder::encode(const QImage& image)
{
    constexpr size_t kLongestPixel = 8, kTables = 65536; // bytes, beyond what any picture needs
    PageBuffer pages(size_t(image.width()) * size_t(image.height()) * kLongestPixel + kTables);
    if (pages.isNull() || !compress(image, pages))
        return {};
    return pages;
}
