#include "output/PngRowFilters.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <random>
#include <vector>

namespace {

struct Rows {
    std::vector<uint8_t> current, above;

    Rows(size_t bytes, unsigned seed, unsigned spread)
        : current(bytes + 3)
        , above(bytes + 3)
    {
        std::mt19937 random(seed);
        for (size_t i = 3; i < bytes + 3; ++i) {
            current[i] = uint8_t(random() % spread);
            above[i] = uint8_t(random() % spread);
        }
    }
    PngRow row() const { return {current.data() + 3, above.data() + 3, current.size() - 3}; }
};

int predictor(PngFilter filter, int left, int above, int aboveLeft)
{
    const int guess = left + above - aboveLeft;
    const int toLeft = std::abs(guess - left), toAbove = std::abs(guess - above);
    const int toAboveLeft = std::abs(guess - aboveLeft);
    switch (filter) {
    case PngFilter::None:
        return 0;
    case PngFilter::Sub:
        return left;
    case PngFilter::Up:
        return above;
    case PngFilter::Average:
        return (left + above) / 2;
    case PngFilter::Paeth:
        break;
    }
    return toLeft <= toAbove && toLeft <= toAboveLeft ? left : toAbove <= toAboveLeft ? above : aboveLeft;
}

std::vector<const PngRowFilters*> kindsOfThisProcessor()
{
    std::vector<const PngRowFilters*> kinds{&PngRowFilters::portable()};
    for (const PngRowFilters* kind : {PngRowFilters::ssse3(), PngRowFilters::avx2()}) {
        if (kind)
            kinds.push_back(kind);
    }
    return kinds;
}

}

// The decoder's side as the format defines it, in plain integers, gives the row back.
TEST(PngRowFilters, AreUndoneByTheFormatsOwnPredictors)
{
    for (size_t pixels : {1, 2, 3, 5, 6, 10, 11, 16, 21, 22, 43, 200}) {
        for (unsigned spread : {3u, 40u, 256u}) {
            const Rows rows(pixels * 3, unsigned(pixels), spread);
            for (const PngRowFilters* kind : kindsOfThisProcessor()) {
                for (int f = 0; f < kPngFilters; ++f) {
                    SCOPED_TRACE(
                        testing::Message() << pixels << " pixels, spread " << spread << ", filter " << f);
                    std::vector<uint8_t> back(pixels * 3 + 3);
                    kind->apply(rows.row(), PngFilter(f), back.data() + 3);
                    for (size_t i = 3; i < back.size(); ++i)
                        back[i] = uint8_t(
                            back[i] + predictor(PngFilter(f), back[i - 3], rows.above[i], rows.above[i - 3]));
                    EXPECT_EQ(back, rows.current);
                }
            }
        }
    }
}

TEST(PngRowFilters, CountTheResidualsThatTheyWrite)
{
    const Rows rows(3 * 77, 9, 256);
    for (const PngRowFilters* kind : kindsOfThisProcessor()) {
        uint64_t sums[kPngFilters];
        kind->residuals(rows.row(), sums);
        for (int f = 0; f < kPngFilters; ++f) {
            SCOPED_TRACE(f);
            std::vector<uint8_t> written(3 * 77);
            const uint64_t busy = kind->apply(rows.row(), PngFilter(f), written.data());
            uint64_t sum = 0, notZero = 0;
            for (uint8_t byte : written) {
                sum += uint64_t(std::abs(int(int8_t(byte))));
                notZero += byte != 0;
            }
            EXPECT_EQ(sums[f], sum);
            EXPECT_EQ(busy, notZero);
        }
    }
}

TEST(PngRowFilters, PackExactlyThePixelsOfTheRow)
{
    for (size_t pixels : {1, 3, 4, 7, 8, 9, 15, 16, 17, 33}) {
        for (const PngRowFilters* kind : kindsOfThisProcessor()) {
            SCOPED_TRACE(pixels);
            std::vector<uint8_t> bgrx(pixels * 4), rgb(pixels * 3 + 1, 0xee), expected(rgb);
            for (size_t i = 0; i < bgrx.size(); ++i)
                bgrx[i] = uint8_t(i * 7);
            for (size_t i = 0; i < pixels * 3; ++i)
                expected[i] = bgrx[i / 3 * 4 + 2 - i % 3];
            kind->pack(bgrx.data(), rgb.data(), pixels);
            EXPECT_EQ(rgb, expected); // the byte behind the row is untouched
        }
    }
}
