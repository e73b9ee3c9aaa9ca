#include "service/PictureCheck.h"

#include "tests/service/Samples.h"

#include <gtest/gtest.h>

#include <QTemporaryDir>

#include <fstream>

using Verdict = PictureCheck::Verdict;

namespace {

class PictureCheckTest : public testing::Test {
protected:
    PictureCheck::Result check(const std::string& bytes)
    {
        const std::string path = m_folder.filePath(QStringLiteral("file")).toStdString();
        std::ofstream(path, std::ios::binary) << bytes;
        return m_check.check(path);
    }

private:
    QTemporaryDir m_folder;
    PictureCheck m_check{1000000};
};

std::string damaged(std::string bytes)
{
    bytes[bytes.size() / 2] = char(~bytes[bytes.size() / 2]);
    return bytes;
}

}

TEST_F(PictureCheckTest, TakesWholePicturesOnly)
{
    const std::string jpeg = Samples::picture("JPG"), png = Samples::picture("PNG"), gif = Samples::gif();
    struct Case {
        const char* name;
        std::string bytes;
        Verdict verdict;
        const char* contentType;
    };
    const Case cases[] = {
        {"JPEG", jpeg, Verdict::Picture, "image/jpeg"},
        {"PNG", png, Verdict::Picture, "image/png"},
        {"GIF", gif, Verdict::Picture, "image/gif"},
        {"nothing", "", Verdict::NotAPicture, ""},
        {"a drawing with a script", "<svg xmlns='http://www.w3.org/2000/svg'/>", Verdict::NotAPicture, ""},
        {"a bitmap", Samples::picture("BMP"), Verdict::NotAPicture, ""},
        {"a beginning and an end alone", "\xff\xd8\xff\xff\xd9", Verdict::NotAPicture, ""},
        {"half a JPEG", jpeg.substr(0, jpeg.size() / 2), Verdict::NotAPicture, ""},
        {"half a PNG", png.substr(0, png.size() / 2), Verdict::NotAPicture, ""},
        {"a damaged PNG", damaged(png), Verdict::NotAPicture, ""},
        {"a JPEG with an archive behind it", jpeg + "PK\x03\x04", Verdict::NotAPicture, ""},
        {"too many pixels", Samples::promising(1000, 1001), Verdict::TooManyPixels, ""},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.name);
        const PictureCheck::Result found = check(c.bytes);
        EXPECT_EQ(found.verdict, c.verdict);
        EXPECT_EQ(found.contentType, c.contentType);
    }
    const PictureCheck::Result found = check(Samples::picture("PNG", 33, 44));
    EXPECT_EQ(found.width, 33);
    EXPECT_EQ(found.height, 44);
}
