#pragma once

#include <cstdint>
#include <mutex>
#include <string>

// Tells pictures from all other files by decoding them. Takes JPEG, PNG and GIF. Any thread; pictures are
// decoded one at a time, so that the memory for one is all that is ever needed.
class PictureCheck {
public:
    enum class Verdict {
        Picture,
        NotAPicture,   // of another type, truncated, or with anything behind its end
        TooManyPixels, // not decoded
    };
    struct Result {
        Verdict verdict = Verdict::NotAPicture;
        std::string contentType; // the three below are set for a picture
        int width = 0;           // pixels
        int height = 0;
    };

    explicit PictureCheck(std::int64_t maxPixels);
    Result check(const std::string& path);

private:
    const std::int64_t m_maxPixels;
    std::mutex m_oneAtATime;
};
