// Shows a record to a viewer: plays it on the screen and the loudspeaker of another host, at the
// speed that the viewer asks for, and lets him play on.
#pragma once

#include <functional>
#include <vector>

#include "record/playback.h"

namespace record {

class WatchingHost final : public Playback
{
public:
    /// How a viewing begins.
    struct View
    {
        std::uint64_t position = 0; ///< milliseconds; up to there it runs at once, unseen
        int quarterSpeed = 4;
        bool playing = true;
    };
    struct Callbacks
    {
        /// Begins anew with a fresh program, because the record only goes forwards. The present one
        /// is not shown any more.
        std::function<void(const View &)> restart;
        /// The first frame is on the screen.
        std::function<void()> shown;
    };

    WatchingHost(const Record &record, Subject subject, host::Host &shown, const View &view,
                 Callbacks callbacks);

    std::uint32_t ticks() const override
    {
        return offset_ ? shown_.ticks() + *offset_ : Playback::ticks();
    }
    std::optional<host::Event> wait(std::optional<std::uint32_t> deadline) override;
    void present(const host::Frame &frame, const host::Area &changed) override;
    void describeProgram(std::u16string_view title, const host::Icon &icon) override
    {
        shown_.describeProgram(title, icon);
    }
    void raise() override { shown_.raise(); }
    void wantText(bool wanted) override;
    bool hasLoudspeaker() override { return shown_.hasLoudspeaker(); }
    void playSamples(std::span<const std::uint8_t> samples) override;
    void dropSamples() override;
    bool samplesQueued() override
    {
        return offset_ ? shown_.samplesQueued() : Playback::samplesQueued();
    }
    bool showHelp(std::u16string_view program, std::u16string_view arguments,
                  std::span<const std::byte> document, std::u16string_view anchor) override;
    void report(std::string_view line) override { shown_.report(line); }

private:
    bool mayMove(std::optional<std::uint64_t> target) override;
    std::optional<std::uint32_t> nextLook(std::optional<std::uint64_t> target) const;
    void obey(const host::Event &event);
    void seek(std::int64_t position);
    void play(bool playing);
    void setSpeed(int quarterSpeed);
    void countFromNow();
    void advance();
    void showFrame();
    void updateProgress();
    std::string chapter() const;
    std::optional<std::uint64_t> otherChapter(bool next) const;
    void takeOver();

    host::Host &shown_;
    Callbacks callbacks_;
    std::vector<const Step *> chapters_;
    View view_;               ///< its position is the viewer's; the program's follows at once
    std::uint32_t realStart_; ///< the shown host's tick count at `startPosition_`
    std::uint64_t startPosition_;
    std::uint64_t reached_ = 0; ///< by the program; a jump of the record may have led it further
    host::Frame frame_;
    std::optional<host::Area> unseen_; ///< what the viewer has not seen of the frame
    host::Progress progress_{};
    bool textWanted_ = false;
    bool ended_ = false;
    std::optional<std::uint32_t> offset_; ///< of the clocks, once the viewer has taken over
    std::vector<host::Event> released_;   ///< what the program gets first then
};

} // namespace record
