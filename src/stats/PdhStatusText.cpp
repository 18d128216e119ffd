#include "stats/PdhStatusText.h"

#include "base/FillIn.h"
#include "base/Translate.h"

#include <algorithm>
#include <cstdio>
#include <iterator>

namespace {

struct StatusText {
    PdhStatus status;
    const char* text;
};

constexpr StatusText kTexts[] = {
    // in the order of the statuses
    {0x800007D0,
     TRANSLATE_NOOP("PdhStatus", "Unable to connect to specified machine or machine is off line.")},
    {0x800007D1, TRANSLATE_NOOP("PdhStatus", "The specified instance is not present.")},
    {0x800007D2,
     TRANSLATE_NOOP(
         "PdhStatus",
         "There is more data to return than would fit in the supplied buffer. Allocate a larger buffer and "
         "call the function again.")},
    {0x800007D3,
     TRANSLATE_NOOP(
         "PdhStatus",
         "The data item has been added to the query, but has not been validated nor accessed. No other "
         "status information on this data item is available.")},
    {0x800007D4, TRANSLATE_NOOP("PdhStatus", "The selected operation should be retried.")},
    {0x800007D5, TRANSLATE_NOOP("PdhStatus", "No data to return.")},
    {0x800007D6, TRANSLATE_NOOP("PdhStatus", "A counter with a negative denominator value was detected.")},
    {0x800007D7, TRANSLATE_NOOP("PdhStatus", "A counter with a negative timebase value was detected.")},
    {0x800007D8, TRANSLATE_NOOP("PdhStatus", "A counter with a negative value was detected.")},
    {0x800007D9, TRANSLATE_NOOP("PdhStatus", "The user cancelled the dialog box.")},
    {0x800007DA, TRANSLATE_NOOP("PdhStatus", "The end of the log file was reached.")},
    {0x80000BD5,
     TRANSLATE_NOOP(
         "PdhStatus",
         "Unable to map to the performance counter name data files. The data will be read from the registry "
         "and stored locally.")},
    {0xC0000BB8, TRANSLATE_NOOP("PdhStatus", "The specified object is not found on the system.")},
    {0xC0000BB9, TRANSLATE_NOOP("PdhStatus", "The specified counter could not be found.")},
    {0xC0000BBA, TRANSLATE_NOOP("PdhStatus", "The returned data is not valid.")},
    {0xC0000BBB,
     TRANSLATE_NOOP(
         "PdhStatus",
         "A PDH function could not allocate enough temporary memory to complete the operation. Close some "
         "applications or extend the pagefile and retry the function.")},
    {0xC0000BBC, TRANSLATE_NOOP("PdhStatus", "The handle is not a valid PDH object.")},
    {0xC0000BBD, TRANSLATE_NOOP("PdhStatus", "A required argument is missing or incorrect.")},
    {0xC0000BBE, TRANSLATE_NOOP("PdhStatus", "Unable to find the specified function.")},
    {0xC0000BBF, TRANSLATE_NOOP("PdhStatus", "No counter was specified.")},
    {0xC0000BC0,
     TRANSLATE_NOOP("PdhStatus",
                    "Unable to parse the counter path. Check the format and syntax of the specified path.")},
    {0xC0000BC1, TRANSLATE_NOOP("PdhStatus", "The buffer passed by the caller is invalid.")},
    {0xC0000BC2,
     TRANSLATE_NOOP(
         "PdhStatus",
         "The requested data is larger than the buffer supplied. Unable to return the requested data.")},
    {0xC0000BC3, TRANSLATE_NOOP("PdhStatus", "Unable to connect to the requested machine.")},
    {0xC0000BC4, TRANSLATE_NOOP("PdhStatus", "The specified counter path could not be interpreted.")},
    {0xC0000BC5,
     TRANSLATE_NOOP("PdhStatus", "The instance name could not be read from the specified counter path.")},
    {0xC0000BC6, TRANSLATE_NOOP("PdhStatus", "The data is not valid.")},
    {0xC0000BC7, TRANSLATE_NOOP("PdhStatus", "The dialog box data block was missing or invalid.")},
    {0xC0000BC8,
     TRANSLATE_NOOP("PdhStatus",
                    "Unable to read the counter and/or explain text from the specified machine.")},
    {0xC0000BC9, TRANSLATE_NOOP("PdhStatus", "Unable to create the specified log file.")},
    {0xC0000BCA, TRANSLATE_NOOP("PdhStatus", "Unable to open the specified log file.")},
    {0xC0000BCB,
     TRANSLATE_NOOP("PdhStatus", "The specified log file type has not been installed on this system.")},
    {0xC0000BCC, TRANSLATE_NOOP("PdhStatus", "No more data is available.")},
    {0xC0000BCD, TRANSLATE_NOOP("PdhStatus", "The specified record was not found in the log file.")},
    {0xC0000BCE, TRANSLATE_NOOP("PdhStatus", "The specified data source is a log file.")},
    {0xC0000BCF, TRANSLATE_NOOP("PdhStatus", "The specified data source is the current activity.")},
    {0xC0000BD0, TRANSLATE_NOOP("PdhStatus", "The log file header could not be read.")},
    {0xC0000BD1, TRANSLATE_NOOP("PdhStatus", "Unable to find the specified file.")},
    {0xC0000BD2, TRANSLATE_NOOP("PdhStatus", "There is already a file with the specified file name.")},
    {0xC0000BD3, TRANSLATE_NOOP("PdhStatus", "The function referenced has not been implemented.")},
    {0xC0000BD4,
     TRANSLATE_NOOP(
         "PdhStatus",
         "Unable to find the specified string in the list of performance name and explain text strings.")},
    {0xC0000BD6,
     TRANSLATE_NOOP("PdhStatus", "The format of the specified log file is not recognized by the PDH DLL.")},
    {0xC0000BD7, TRANSLATE_NOOP("PdhStatus", "The specified Log Service command value is not recognized.")},
    {0xC0000BD8,
     TRANSLATE_NOOP("PdhStatus",
                    "The specified Query from the Log Service could not be found or could not be opened.")},
    {0xC0000BD9,
     TRANSLATE_NOOP(
         "PdhStatus",
         "The Performance Data Log Service key could not be opened. This may be due to insufficient "
         "privilege or because the service has not been installed.")},
    {0xC0000BDA, TRANSLATE_NOOP("PdhStatus", "An error occurred while accessing the WBEM data store.")},
    {0xC0000BDB,
     TRANSLATE_NOOP(
         "PdhStatus",
         "The Performance Data Log service key could not be opened. This may be due to insufficient "
         "privilege or because the service has not been installed.")},
    {0xC0000BDC,
     TRANSLATE_NOOP("PdhStatus",
                    "The maximum log file size specified is too small to log the selected counters.")},
    {0xC0000BE8, TRANSLATE_NOOP("PdhStatus", "Unable to connect to the WMI server on requested machine.")},
    {0xC0000BF6,
     TRANSLATE_NOOP(
         "PdhStatus",
         "Performance counter in has already been added in the performance query. This counter is ignored.")},
    {0xC0000BF7,
     TRANSLATE_NOOP("PdhStatus", "Unable to read counter information and data from input binary log files.")},
    {0xC0000BF8,
     TRANSLATE_NOOP("PdhStatus",
                    "At least one of the input binary log files contain fewer than two data samples.")},
    {0xC0000BF9,
     TRANSLATE_NOOP(
         "PdhStatus",
         "The version of the operating system on the target computer is later than that on the local "
         "computer. This operation is not available from the local computer.")},
    {0xC0000BFA,
     TRANSLATE_NOOP(
         "PdhStatus",
         "The version of the operating system on the target computer is too old. This operation is not "
         "available from the local computer.")},
    {0xC0000BFE,
     TRANSLATE_NOOP(
         "PdhStatus",
         "System is busy. Timeout when collecting counter data. Please retry later or increase CollectTime "
         "registry value.")},
};

constexpr bool IsBelow(const StatusText& entry, PdhStatus status)
{
    return entry.status < status;
}

}  // namespace

std::string PdhStatusText(PdhStatus status)
{
    if (status >> 30 < 2) return {};
    const auto* const at = std::lower_bound(std::begin(kTexts), std::end(kTexts), status, IsBelow);
    if (at == std::end(kTexts) || at->status != status)
        return Translate("PdhStatus", "PDH Function could not be executed");
    return Translate("PdhStatus", at->text);
}

std::string WithPdhError(std::string_view message, PdhStatus status, std::string_view text)
{
    char code[9];
    std::snprintf(code, sizeof code, "%X", status);
    return std::string(message) + "\n" + FillIn(Translate("PdhStatus", "Error 0x%1 - %2"), {code, text});
}
