#include "service/ServiceOptions.h"

#include <gtest/gtest.h>

#include <QByteArray>

TEST(ServiceOptions, TakeWhatTheyCanUseAndNameWhatTheyCannot)
{
    struct Case {
        std::vector<std::string> arguments;
        const char* reason;
    };
    const Case cases[] = {
        {{}, ""},
        {{"--listen", "[::1]:80"}, ""},
        {{"--listen", "0.0.0.0:80"}, "plain HTTP is for loopback only: give --certificate and --key"},
        {{"--listen", "127.example.org:80"}, "plain HTTP is for loopback only: give --certificate and --key"},
        {{"--listen", "0.0.0.0:443", "--certificate", "c", "--key", "k"}, ""},
        {{"--certificate", "c"}, "--certificate and --key belong together"},
        {{"--listen", ":80"}, "--listen cannot be :80"},
        {{"--listen", "localhost:65536"}, "--listen cannot be localhost:65536"},
        {{"--max-bytes", "12k"}, "--max-bytes cannot be 12k"},
        {{"--max-bytes", "0"}, "--max-bytes cannot be 0"},
        {{"--public-url", "ftp://x"}, "--public-url cannot be ftp://x"},
        {{"--upload-path", "/up/8sd-_f"}, ""},
        {{"--upload-path", "/up.*"}, "--upload-path cannot be /up.*"},
        {{"--upload-path", "/p/x"}, "--upload-path cannot be /p/x"},
        {{"--uploads-per-minute", "0"}, ""},
        {{"--trusted-proxy", "proxy"}, "--trusted-proxy cannot be proxy"},
        {{"--trusted-proxy", "::1"}, ""},
        {{"--s3-endpoint", "http://127.0.0.1:9000/", "--s3-bucket", "b"}, ""},
        {{"--s3-endpoint", "http://s3.example.org"}, "--s3-endpoint cannot be http://s3.example.org"},
        {{"--s3-endpoint", "https://a:b@s3"}, "--s3-endpoint cannot be https://a:b@s3"},
        {{"--s3-endpoint", "https://s3/x"}, "--s3-endpoint cannot be https://s3/x"},
        {{"--s3-bucket", "../b"}, "--s3-bucket cannot be ../b"},
        {{"--s3-bucket", "b"}, "--s3-endpoint and --s3-bucket belong together"},
        {{"--data"}, "--data needs a value"},
        {{"--dat", "x"}, "unknown option --dat"},
    };
    qputenv("AWS_ACCESS_KEY_ID", "key");
    qputenv("AWS_SECRET_ACCESS_KEY", "secret");
    for (const Case& c : cases) {
        SCOPED_TRACE(c.arguments.empty() ? "" : c.arguments.back());
        EXPECT_EQ(parsedOptions(c.arguments).reason, c.reason);
    }
    qunsetenv("AWS_SECRET_ACCESS_KEY");
    EXPECT_EQ(parsedOptions({"--s3-endpoint", "https://s3", "--s3-bucket", "b"}).reason,
        "a bucket needs AWS_ACCESS_KEY_ID and AWS_SECRET_ACCESS_KEY in the environment");
}

TEST(ServiceOptions, AreReadIntoTheirPlaces)
{
    const ServiceOptions options = parsedOptions({"--listen", "[::1]:80", "--max-bytes", "7", "--max-pixels",
                                                     "8", "--public-url", "https://pictures.example.org/"})
                                       .options;
    EXPECT_EQ(options.host, "::1");
    EXPECT_EQ(options.port, 80);
    EXPECT_EQ(options.maxBytes, 7);
    EXPECT_EQ(options.maxPixels, 8);
    EXPECT_EQ(options.publicUrl, "https://pictures.example.org");
    EXPECT_TRUE(parsedOptions({"--help"}).isHelp);
}
