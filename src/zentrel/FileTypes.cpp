#include "zentrel/FileTypes.h"

#include "base/Text.h"

#include <algorithm>
#include <array>

namespace zentrel {

namespace {

// In byte order.
constexpr auto kCompressible = std::to_array<std::string_view>({
    "asc",  "asp",    "aspx",  "atom", "bat",  "bmp",  "c",   "cc",       "cfg", "cgi",      "conf", "cpp",
    "cs",   "css",    "csv",   "cxx",  "diff", "doc",  "dtd", "eot",      "eps", "geojson",  "go",   "h",
    "hh",   "hpp",    "htc",   "htm",  "html", "hxx",  "ico", "ics",      "inc", "ini",      "java", "js",
    "json", "jsonld", "jsx",   "kml",  "less", "log",  "lua", "manifest", "map", "markdown", "md",   "mjs",
    "otf",  "patch",  "php",   "pl",   "pm",   "po",   "ppt", "ps",       "py",  "rb",       "rdf",  "rs",
    "rss",  "rst",    "rtf",   "sass", "scss", "sgml", "sh",  "shtml",    "sql", "srt",      "svg",  "tcl",
    "tex",  "text",   "toml",  "ts",   "tsv",  "tsx",  "ttf", "txt",      "vbs", "vcf",      "vtt",  "wasm",
    "wml",  "wsdl",   "xhtml", "xls",  "xml",  "xsd",  "xsl", "xslt",     "xul", "yaml",     "yml",
});

static_assert(std::is_sorted(kCompressible.begin(), kCompressible.end()));

}  // namespace

bool IsCompressibleName(std::string_view fileName)
{
    const auto dot = fileName.rfind('.');
    if (dot == std::string_view::npos) return false;
    return std::binary_search(kCompressible.begin(), kCompressible.end(),
                              LowerCase(fileName.substr(dot + 1)));
}

}  // namespace zentrel
