// The records of past sessions, in the folder "records" beside the store: the newest 20, and 10 MB
// in all at most. Each is named by the time when it began, in UTC: "2026-11-25 08.12.34.pilot".
#pragma once

#include <filesystem>
#include <optional>
#include <vector>

#include "host/files.h"
#include "host/problem.h"

class SessionRecords
{
public:
    explicit SessionRecords(const std::filesystem::path &storeFolder)
        : folder_(storeFolder / "records")
    {}

    /// Begins a record, and deletes old ones to make room.
    host::Result<host::Append> begin();
    /// Deletes the record that was begun: there was no game in it.
    void drop();

    /// The latest with a game in it.
    std::optional<std::filesystem::path> latestGame() const;
    /// The latest, if its session did not end as it should: the machine or the process was stopped.
    std::optional<std::filesystem::path> unfinished() const;
    /// Ends such a record, so that it is finished.
    static void finish(const std::filesystem::path &record);

private:
    std::vector<std::filesystem::path> newestFirst() const;
    void makeRoom() const;

    std::filesystem::path folder_;
    std::filesystem::path begun_;
};
