#include "service/Metrics.h"

#include <string_view>

namespace {

struct Series {
    std::string_view name;
    const char* labels;
    const char* meaning;
};

// In the order of the counts; those of one name stand together.
constexpr Series kSeries[] = {
    {"kestrel_answers_total", R"({class="2xx"})", "Answers, by class of status."},
    {"kestrel_answers_total", R"({class="3xx"})", ""},
    {"kestrel_answers_total", R"({class="4xx"})", ""},
    {"kestrel_answers_total", R"({class="5xx"})", ""},
    {"kestrel_uploads_total", R"({result="stored"})", "Uploads that came, by what became of them."},
    {"kestrel_uploads_total", R"({result="refused"})", ""},
    {"kestrel_upload_bytes_total", "", "Bytes of the pictures stored."},
    {"kestrel_pictures_sent_total", "", "Pictures sent to who looks at them."},
    {"kestrel_pictures_deleted_total", "", "Pictures that their senders deleted."},
    {"kestrel_pictures_expired_total", "", "Pictures removed because their day had come."},
    {"kestrel_passwords_total", R"({result="right"})",
        "Passwords tried; those held back were not looked at."},
    {"kestrel_passwords_total", R"({result="wrong"})", ""},
    {"kestrel_passwords_total", R"({result="held"})", ""},
    {"kestrel_rate_limited_total", "", "Requests refused because their address sent too many."},
    {"kestrel_storage_faults_total", "", "Answers of the storage that it could not do as asked."},
};
static_assert(std::size(kSeries) == Metrics::Counts);

}

std::string Metrics::text() const
{
    std::string text;
    std::string_view last;
    for (size_t i = 0; i < Counts; ++i) {
        const Series& series = kSeries[i];
        const std::string name(series.name);
        if (series.name != last)
            text += "# HELP " + name + ' ' + series.meaning + "\n# TYPE " + name + " counter\n";
        text += name + series.labels + ' ' + std::to_string(m_counts[i]) + '\n';
        last = series.name;
    }
    return text;
}
