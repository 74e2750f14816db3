// Records a session exactly: a host around another one that writes what the user does, and when, as
// a script with which the pilot, or anyone's game, does the same again.
#pragma once

#include <functional>
#include <string>
#include <string_view>

#include "host/host.h"
#include "record/digest.h"
#include "record/record.h"

namespace record {

class RecordingHost final : public host::Host
{
public:
    /// Takes the next part of the record, whole lines, at once and for good.
    using Sink = std::function<host::Problem(std::string_view)>;

    explicit RecordingHost(host::Host &inner) : inner_(inner) {}

    /// Begins the record, before the program runs. `program`: its name and version. When the sink
    /// fails, the user hears of it once, and the game goes on unrecorded.
    ///
    /// What the user does is written at once, so that it survives a crash; the time that passes,
    /// the repeats of a held key and the moves of the stylus once a second.
    void begin(const std::string &program, bool turned, Subject subject, Sink sink);
    /// Writes what has not been written yet, up to the present moment.
    void catchUp();
    /// The program has ended.
    void close();

    std::uint32_t ticks() const override { return inner_.ticks(); }
    /// Gives an event only when the program has nothing left to do, as the pilot does: with a
    /// deadline that is not ahead it returns none.
    std::optional<host::Event> wait(std::optional<std::uint32_t> deadline) override;
    std::optional<std::vector<std::byte>> loadStore() override { return store_; }

    void present(const host::Frame &frame, const host::Area &changed) override
    {
        inner_.present(frame, changed);
    }
    void describeProgram(std::u16string_view title, const host::Icon &icon) override
    {
        inner_.describeProgram(title, icon);
    }
    void raise() override { inner_.raise(); }
    void wantText(bool wanted) override { inner_.wantText(wanted); }
    bool hasLoudspeaker() override { return inner_.hasLoudspeaker(); }
    void playSamples(std::span<const std::uint8_t> samples) override
    {
        inner_.playSamples(samples);
    }
    void dropSamples() override { inner_.dropSamples(); }
    bool samplesQueued() override { return inner_.samplesQueued(); }
    bool saveStore(std::span<const std::byte> bytes) override;
    void setStoreAside() override { inner_.setStoreAside(); }
    bool runsElsewhere() override { return inner_.runsElsewhere(); }
    void raiseOther() override { inner_.raiseOther(); }
    bool showHelp(std::u16string_view program, std::u16string_view arguments,
                  std::span<const std::byte> document, std::u16string_view anchor) override
    {
        return inner_.showHelp(program, arguments, document, anchor);
    }
    void report(std::string_view line) override { inner_.report(line); }
    void messageBoxOpened(std::u16string_view caption, std::u16string_view text) override
    {
        inner_.messageBoxOpened(caption, text);
    }
    void timerHandled() override { inner_.timerHandled(); }

private:
    void noteProgram();
    void noteDigest();
    void noteEvent(const host::Event &event);
    void noteTime(std::uint32_t moment);
    void add(const std::string &line);
    void write();

    host::Host &inner_;
    Subject subject_;
    Sink sink_; ///< none: nothing is recorded any more
    std::optional<std::vector<std::byte>> store_;
    std::string pending_;       ///< lines that the sink has not got yet
    Digest digested_;           ///< of all lines
    std::size_t size_ = 0;      ///< of all lines, bytes
    std::uint32_t noted_ = 0;   ///< the moment that the lines reach
    std::uint32_t written_ = 0; ///< when the sink last got some
    std::uint32_t nextDigest_ = 0;
    std::uint16_t lastKey_ = 0; ///< that went down and is held
};

} // namespace record
