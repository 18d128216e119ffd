#pragma once

#include <string>
#include <string_view>

namespace zentrel {

// One line of a web server's access log.
struct LogLine {
    enum class Kind {
        Malformed,  // not a line of such a log, or its request is no request
        Fetch,      // GET or HEAD
        Other,      // another method, or "-": a connection that ended before it asked
    };

    Kind kind = Kind::Malformed;
    std::string url;  // Fetch: path and query as the client sent them, begins with "/"; else empty
};

// Reads a line in the common or combined format, without its line end; any bytes may be given:
//     host identity user [day/month/year:h:m:s zone] "request" status bytes ...
// A leading field more (the virtual host) and whatever follows the byte count are accepted. The request's
// escapes (\" \\ \n \xNN) are undone; "http://host/path" gives "/path".
LogLine ParseLogLine(std::string_view line);

}  // namespace zentrel
