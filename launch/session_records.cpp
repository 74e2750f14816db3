// The folder of records. Whatever fails here costs a record, never a game.
#include "launch/session_records.h"

#include <algorithm>
#include <chrono>
#include <ctime>
#include <string>

#include "record/record.h"

namespace {

namespace fs = std::filesystem;

constexpr std::size_t mostRecords = 20;
constexpr std::uintmax_t mostBytes = 10U << 20U;

std::string timeName()
{
    const std::time_t now = std::chrono::system_clock::to_time_t(std::chrono::system_clock::now());
    std::tm utc{};
    gmtime_r(&now, &utc);
    char text[32];
    std::strftime(text, sizeof text, "%Y-%m-%d %H.%M.%S", &utc);
    return text;
}

std::string textOf(const fs::path &record)
{
    return host::readFile(record, record::largestSize).value.value_or("");
}

bool hasGame(const std::string &text)
{
    return text.find("\n# game ") != std::string::npos ||
           text.find("\n# came back ") != std::string::npos;
}

} // namespace

std::vector<fs::path> SessionRecords::newestFirst() const
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
    return records;
}

/// One more will come.
void SessionRecords::makeRoom() const
{
    std::uintmax_t bytes = record::largestSize;
    std::size_t count = 1;
    for (const fs::path &record : newestFirst()) {
        std::error_code error;
        const std::uintmax_t size = fs::file_size(record, error);
        bytes += error ? 0 : size;
        if (++count > mostRecords || bytes > mostBytes) {
            fs::remove(record, error);
        }
    }
}

host::Result<host::Append> SessionRecords::begin()
{
    std::error_code error;
    fs::create_directory(folder_, error);
    makeRoom();
    begun_ = folder_ / (timeName() + ".pilot");
    return host::makeFile(begun_);
}

void SessionRecords::drop()
{
    std::error_code ignored;
    fs::remove(begun_, ignored);
}

std::optional<fs::path> SessionRecords::latestGame() const
{
    const auto records = newestFirst();
    const auto found = std::find_if(records.begin(), records.end(),
                                    [](const fs::path &record) { return hasGame(textOf(record)); });
    return found == records.end() ? std::nullopt : std::optional(*found);
}

std::optional<fs::path> SessionRecords::unfinished() const
{
    const auto records = newestFirst();
    if (records.empty()) {
        return std::nullopt;
    }
    const std::string text = textOf(records.front());
    return hasGame(text) && !text.ends_with("\n# closed\n") ? std::optional(records.front())
                                                            : std::nullopt;
}

/// A last line without its end was being written.
void SessionRecords::finish(const fs::path &record)
{
    const std::string text = textOf(record);
    std::error_code error;
    fs::resize_file(record, text.rfind('\n') + 1, error);
    if (!error) {
        static_cast<void>(host::appendToFile(record, "# closed\n"));
    }
}
