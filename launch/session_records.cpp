// The folder of records. Whatever fails here costs a record, never a game.
#include "launch/session_records.h"

#include <algorithm>
#include <ctime>
#include <utility>

#include "record/record.h"

namespace {

namespace fs = std::filesystem;

constexpr std::size_t mostRecords = 20;
constexpr std::uintmax_t mostBytes = 10U << 20U;

constexpr char nameFormat[] = "%Y-%m-%d %H.%M.%S.pilot";

/// The moment that a record is named by; 0 for another name.
std::time_t momentOf(const fs::path &record)
{
    std::tm utc{};
    const std::string name = record.filename();
    const char *end = strptime(name.c_str(), nameFormat, &utc);
    return end && *end == '\0' ? timegm(&utc) : 0;
}

host::Result<std::string> textOf(const fs::path &record)
{
    const auto [text, problem] = host::readFile(record, record::largestSize);
    return {text.value_or(""), problem};
}

bool hasGame(const std::string &text)
{
    return text.find("\n# game ") != std::string::npos ||
           text.find("\n# came back ") != std::string::npos;
}

bool isFinished(const std::string &text)
{
    return text.ends_with("\n" + std::string(record::lastLine));
}

} // namespace

host::Result<std::vector<fs::path>> SessionRecords::newestFirst() const
{
    std::vector<fs::path> records;
    std::error_code error;
    for (fs::directory_iterator each(folder_, error); !error && each != fs::directory_iterator();
         each.increment(error))
    {
        if (each->path().extension() == ".pilot") {
            records.push_back(each->path());
        }
    }
    std::sort(records.rbegin(), records.rend());
    const bool known = !error || error == std::errc::no_such_file_or_directory;
    return {records,
            known ? std::nullopt : host::Problem(host::fileProblem(folder_, error.value()))};
}

/// One more will come.
void SessionRecords::makeRoom() const
{
    std::uintmax_t bytes = record::largestSize;
    std::size_t count = 1;
    for (const fs::path &record : newestFirst().value) {
        std::error_code error;
        const std::uintmax_t known = fs::file_size(record, error);
        const std::uintmax_t size = error ? 0 : known;
        if (count == mostRecords || bytes + size > mostBytes) {
            fs::remove(record, error);
        } else {
            ++count;
            bytes += size;
        }
    }
}

/// Behind all names that there are.
std::string SessionRecords::newName() const
{
    std::time_t moment = std::time(nullptr);
    for (const fs::path &record : newestFirst().value) {
        moment = std::max(moment, momentOf(record) + 1);
    }
    std::tm utc{};
    gmtime_r(&moment, &utc);
    char text[40];
    std::strftime(text, sizeof text, nameFormat, &utc);
    return text;
}

host::Result<host::Append> SessionRecords::begin(std::function<bool()> bringToDisk)
{
    std::error_code error;
    fs::create_directory(folder_, error);
    makeRoom();
    begun_ = folder_ / newName();
    return host::makeFile(begun_, std::move(bringToDisk));
}

/// It is without its end when it could not be written further.
host::Problem SessionRecords::end(bool hasGame) const
{
    if (hasGame) {
        return finish(begun_);
    }
    std::error_code error;
    fs::remove(begun_, error);
    return error ? host::Problem(host::fileProblem(begun_, error.value())) : std::nullopt;
}

std::optional<fs::path> SessionRecords::latestGame() const
{
    const auto records = newestFirst().value;
    const auto found = std::find_if(records.begin(), records.end(), [](const fs::path &record) {
        return hasGame(textOf(record).value);
    });
    return found == records.end() ? std::nullopt : std::optional(*found);
}

host::Result<std::vector<fs::path>> SessionRecords::unfinished() const
{
    auto [records, problem] = newestFirst();
    std::vector<fs::path> found;
    for (const fs::path &record : records) {
        if (isFinished(host::readEnd(record, record::lastLine.size() + 1))) {
            continue; // nearly all are, and may be large
        }
        const auto [text, unreadable] = textOf(record);
        if (unreadable && record == records.front()) {
            problem = unreadable;
        }
        if (hasGame(text) && !isFinished(text)) {
            found.push_back(record);
        }
    }
    return {found, problem};
}

host::Problem SessionRecords::finish(const fs::path &record)
{
    const auto [text, problem] = textOf(record);
    if (problem || isFinished(text)) {
        return problem;
    }
    std::error_code error;
    fs::resize_file(record, record::wholeLines(text).size(), error);
    return error ? host::fileProblem(record, error.value())
                 : host::appendToFile(record, record::lastLine);
}
