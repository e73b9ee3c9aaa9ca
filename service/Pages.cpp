#include "service/Pages.h"

#include <QDateTime>
#include <QLocale>

namespace {

std::string page(const std::string& title, const std::string& head, const std::string& body)
{
    return "<!DOCTYPE html>\n<html lang=\"en\">\n<head>\n<meta charset=\"utf-8\">\n"
           "<meta name=\"viewport\" content=\"width=device-width, initial-scale=1\">\n"
           "<meta name=\"robots\" content=\"noindex\">\n<meta name=\"color-scheme\" content=\"light dark\">\n"
           "<title>" +
           title + "</title>\n<link rel=\"stylesheet\" href=\"/kestrel.css\">\n" + head +
           "</head>\n<body>\n" + body + "<footer>Kestrel</footer>\n</body>\n</html>\n";
}

std::string preview(const std::string& title, const std::string& address)
{
    return "<meta property=\"og:title\" content=\"" + title + "\">\n<meta property=\"og:image\" content=\"" +
           address + "/raw\">\n<meta name=\"twitter:card\" content=\"summary_large_image\">\n";
}

std::string day(std::int64_t seconds)
{
    const QDate date = QDateTime::fromSecsSinceEpoch(seconds, Qt::UTC).date();
    return QLocale::c().toString(date, QStringLiteral("d MMMM yyyy")).toStdString();
}

std::string facts(const PictureInfo& info)
{
    return std::to_string(info.width) + " × " + std::to_string(info.height) + " pixels, uploaded on " +
           day(info.uploaded) + (info.expires > 0 ? ", here until " + day(info.expires) : std::string());
}

}

std::string Pages::picture(const PictureInfo& info, const std::string& base, const std::string& path)
{
    const std::string title = escaped(info.title);
    const std::string name = title.empty() ? "Shared picture" : title;
    const std::string heading = title.empty() ? std::string() : "<h1>" + title + "</h1>\n";
    return page(name, info.passwordHash.empty() ? preview(name, escaped(base + path)) : std::string(),
        "<main>\n" + heading + "<a class=\"picture\" href=\"" + path + "/raw\"><img src=\"" + path +
            "/raw\" width=\"" + std::to_string(info.width) + "\" height=\"" + std::to_string(info.height) +
            "\" alt=\"" + name + "\"></a>\n<p>" + facts(info) + "</p>\n</main>\n");
}

std::string Pages::passwordForm(const std::string& path, const std::string& remark)
{
    const std::string alert = remark.empty()
                                  ? std::string()
                                  : "<p class=\"remark\" id=\"remark\" role=\"alert\">" + remark + "</p>\n";
    const std::string state =
        remark.empty() ? std::string() : " aria-invalid=\"true\" aria-describedby=\"remark\"";
    return page("Private picture", {},
        "<main class=\"card\">\n<h1>Private picture</h1>\n<p>It opens with the password that its sender "
        "chose.</p>\n<form method=\"post\" action=\"" +
            path +
            "\">\n<label for=\"password\">Password</label>\n<input id=\"password\" name=\"password\" "
            "type=\"password\" autocomplete=\"current-password\" required autofocus" +
            state + ">\n" + alert + "<button type=\"submit\">Show the picture</button>\n</form>\n</main>\n");
}

std::string Pages::deleteForm(const std::string& path)
{
    return page("Delete the picture", {},
        "<main class=\"card\">\n<h1>Delete the picture?</h1>\n<p>Its link stops working at once, and nobody "
        "can bring it back.</p>\n<form method=\"post\" action=\"" +
            path + "\">\n<button type=\"submit\">Delete the picture</button>\n</form>\n</main>\n");
}

std::string Pages::message(const std::string& heading, const std::string& sentence)
{
    return page(
        heading, {}, "<main class=\"card\">\n<h1>" + heading + "</h1>\n<p>" + sentence + "</p>\n</main>\n");
}

std::string Pages::styleSheet()
{
    return R"(:root { --ground: #f0f8ff; --card: #ffffff; --ink: #1d2733; --quiet: #56657a; --line: #c1d2e0;
  --accent: #2a7bf4; --button: #1e6de4; --hover: #135ecf; --remark: #b3261e; }
@media (prefers-color-scheme: dark) { :root { --ground: #151b22; --card: #1f2831; --ink: #e8eef5; --quiet: #a3b2c3;
  --line: #3a4856; --accent: #5c9bf8; --hover: #2a7bf4; --remark: #ff9d94; } }
* { box-sizing: border-box; }
body { margin: 0; min-height: 100vh; display: flex; flex-direction: column; background: var(--ground);
  color: var(--ink); font: 16px/1.5 system-ui, sans-serif; }
main { margin: auto; padding: 24px 16px; max-width: 100%; text-align: center; }
h1 { margin: 0 0 16px; font-size: 20px; line-height: 1.3; font-weight: 600; overflow-wrap: anywhere; }
p { margin: 16px 0 0; color: var(--quiet); }
.picture { display: inline-block; max-width: 100%; border: 1px solid var(--line); border-radius: 4px;
  background: var(--card); overflow: hidden; }
.picture img { display: block; max-width: 100%; height: auto; }
:focus-visible { outline: 2px solid var(--accent); outline-offset: 2px; }
.card { width: 400px; max-width: calc(100% - 32px); padding: 32px; text-align: left; background: var(--card);
  border: 1px solid var(--line); border-radius: 8px; }
.card h1 { margin: 0; }
.card p { margin: 8px 0 0; }
.card .remark { color: var(--remark); }
form { margin: 24px 0 0; display: flex; flex-direction: column; }
label { font-weight: 600; }
input, button { height: 44px; font: inherit; border-radius: 4px; }
input { margin: 4px 0 16px; padding: 0 12px; color: inherit; background: var(--card); border: 1px solid var(--quiet); }
form .remark { margin: -8px 0 16px; }
button { padding: 0 16px; font-weight: 600; cursor: pointer; color: #ffffff; background: var(--button); border: 0; }
button:hover { background: var(--hover); }
footer { padding: 16px; font-size: 13px; text-align: center; color: var(--quiet); }
)";
}

std::string Pages::escaped(const std::string& text)
{
    return QString::fromStdString(text).toHtmlEscaped().replace(u'\'', QLatin1String("&#39;")).toStdString();
}
