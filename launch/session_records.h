// The records of past sessions, in the folder "records" beside the store: the newest 20, and 10 MB
// in all at most. Each is named by the time when it began, in UTC: "2026-11-25 08.12.34.pilot".
// When the clock is set back, the names go on a second after the latest.
#pragma once

#include <filesystem>
#include <functional>
#include <optional>
#include <string>
#include <vector>

#include "host/files.h"
#include "host/problem.h"

class SessionRecords
{
public:
    explicit SessionRecords(const std::filesystem::path &storeFolder)
        : folder_(storeFolder / "records")
    {}

    /// Begins a record, and deletes old ones to make room. `bringToDisk` as in makeFile.
    host::Result<host::Append> begin(std::function<bool()> bringToDisk);
    /// The session that was begun has ended as it should. The record of one without a game is
    /// deleted.
    host::Problem end(bool hasGame) const;

    /// The latest with a game in it.
    std::optional<std::filesystem::path> latestGame() const;
    /// Those with a game whose sessions did not end as they should, the latest first: the machine
    /// or the process was stopped. Mostly none, or one. It is a problem when that is not known of
    /// the latest record.
    host::Result<std::vector<std::filesystem::path>> unfinished() const;
    /// Ends such a record, so that it is finished; one that cannot be read stays as it is.
    static host::Problem finish(const std::filesystem::path &record);

private:
    host::Result<std::vector<std::filesystem::path>> newestFirst() const;
    std::string newName() const;
    void makeRoom() const;

    std::filesystem::path folder_;
    std::filesystem::path begun_;
};
