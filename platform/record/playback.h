// Plays a record: a host that gives the program what the user once did, and when, on a clock that
// jumps. It has no screen, no loudspeaker that sounds, and a store in memory, so that nothing of
// the present user's is read or changed. It compares the digests and the chapters on the way.
#pragma once

#include <optional>
#include <set>
#include <string>
#include <vector>

#include "host/host.h"
#include "host/silent_speaker.h"
#include "record/record.h"

namespace record {

class Playback : public host::Host
{
public:
    /// `record` must outlive it.
    Playback(const Record &record, Subject subject);

    /// To be called when the program has ended, for the end of the record.
    void programEnded();

    /// Where the program first did something else than the record says: "differs at 0:41.200, line
    /// 812"; none so far.
    const host::Problem &difference() const { return difference_; }
    using Store = std::optional<std::vector<std::byte>>;
    /// What the program has in its store.
    const Store &store() const { return stores_.back(); }
    /// The states of the store since shortly before the last event, by the end of the record: the
    /// session that was recorded may have been stopped before one of them had reached its disk.
    const std::vector<Store> &storesAtEnd() const { return ended_ ? storesAtEnd_ : stores_; }

    std::uint32_t ticks() const override { return clock_; }
    std::optional<host::Event> wait(std::optional<std::uint32_t> deadline) override;
    void present(const host::Frame &, const host::Area &) override {}
    bool hasLoudspeaker() override { return true; }
    void playSamples(std::span<const std::uint8_t> samples) override
    {
        speaker_.play(samples.size(), clock_);
    }
    void dropSamples() override { speaker_.drop(); }
    bool samplesQueued() override { return speaker_.isPlaying(clock_); }
    std::optional<std::vector<std::byte>> loadStore() override { return stores_.back(); }
    bool saveStore(std::span<const std::byte> bytes) override;
    void setStoreAside() override {}
    bool showHelp(std::u16string_view, std::u16string_view, std::span<const std::byte>,
                  std::u16string_view) override
    {
        return true;
    }
    void report(std::string_view) override {}

protected:
    /// Milliseconds of the record that have passed.
    std::uint64_t position() const { return position_; }
    /// Called before the position goes on to `target`; none: the record has nothing more, and the
    /// answer must be no. Without the leave to move the program is asked to close.
    virtual bool mayMove(std::optional<std::uint64_t> target) { return target.has_value(); }

    /// Whether nothing happens in the record any more.
    bool isOver() const;

    const Record &record_;
    std::set<std::uint16_t> heldKeys_;  ///< that the record holds down at this moment
    std::optional<host::Point> stylus_; ///< where it holds the stylus down

private:
    std::optional<std::uint64_t> nextMoment(std::optional<std::uint32_t> deadline) const;
    std::optional<host::Event> takeStep(const Step &step);
    void compare(const Step &step);
    void noteHeld(const host::Event &event);
    void differ(const Step &step, const std::string &what = {});

    Subject subject_;
    bool checked_;         ///< the record has digests
    bool ended_ = false;   ///< the record has, and the program was still running
    std::size_t next_ = 0; ///< step
    std::uint32_t clock_;
    std::uint64_t position_ = 0;
    std::string chapter_; ///< what the program says it is at, not yet compared
    host::SilentSpeaker speaker_;
    host::Problem difference_;
    std::vector<Store> stores_; ///< the present one last; at least those since the last event
    std::vector<Store> storesAtEnd_;
};

} // namespace record
