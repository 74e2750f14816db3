"""The five sound effects, 22,050 samples a second, eight bits, silence 128."""
import numpy as np

from canvas import hashed

RATE = 22050


def _seconds(count):
    return np.arange(count) / RATE


def _fades(count, attack, release):
    """An envelope that begins and ends at nothing, over `attack` and `release` samples."""
    n = np.arange(count)
    rise = np.clip(n / attack, 0, 1)
    fall = np.clip((count - 1 - n) / release, 0, 1)
    return np.sin(rise * np.pi / 2) ** 2 * np.sin(fall * np.pi / 2) ** 2


def _samples(signal, peak):
    """Eight-bit samples of a signal scaled to `peak` of full scale.

    A little noise, as loud as the sound allows, keeps quiet endings from sounding harsh. The rounding error is carried
    to the next sample, which moves it to high frequencies, where it is least audible.
    """
    signal = signal * (peak * 127 / np.abs(signal).max())
    steps = np.floor(signal * 65536 + 0.5).astype(np.int64)
    count = len(steps)
    chance = (hashed(np.arange(count), 0, 7) - hashed(np.arange(count), 1, 7)) * 0.5
    loud = np.clip(np.abs(signal).cumsum() / 40, 0, 1) * np.clip(np.abs(signal)[::-1].cumsum()[::-1] / 40, 0, 1)
    grain = np.floor(chance * loud * 65536 + 0.5).astype(np.int64)
    out = np.empty(count, dtype=np.uint8)
    error = 0
    for i in range(count):
        wanted = int(steps[i]) - error // 2
        rounded = (wanted + int(grain[i]) + 32768) >> 16
        error = (rounded << 16) - wanted
        out[i] = 128 + rounded
    out[0] = out[-1] = 128
    return out


def shift():
    """A soft tick."""
    t = _seconds(188)
    return _samples(np.sin(2 * np.pi * 1250 * t) * _fades(188, 24, 150), 0.42)


def rotate():
    """A short turn upward."""
    t = _seconds(2230)
    phase = 2 * np.pi * (430 * t + 2300 * t * t)
    tone = np.sin(phase) + 0.3 * np.sin(2 * phase) + 0.08 * np.sin(3 * phase)
    return _samples(tone * np.exp(-t * 26) * _fades(2230, 60, 900), 0.5)


def lock():
    """A solid knock."""
    t = _seconds(566)
    drop = 2 * np.pi * (150 * t + 3.2 * (1 - np.exp(-t * 120)))
    tone = np.sin(drop) + 0.35 * np.sin(2 * np.pi * 610 * t) * np.exp(-t * 260)
    return _samples(tone * _fades(566, 14, 330), 0.8)


def _bell(count, start, pitch, decay):
    """A struck glass tone that starts at sample `start`."""
    t = np.maximum(_seconds(count) - start / RATE, 0)
    tone = sum(
        level * np.sin(2 * np.pi * pitch * ratio * t) * np.exp(-t * decay * (0.7 + 0.5 * ratio))
        for ratio, level in ((1, 1.0), (2.0, 0.42), (3.01, 0.16), (4.2, 0.07))
    )
    return tone * np.clip(t * RATE / 70, 0, 1)


def rows():
    """A bright sweep: glass tones run upward and ring out."""
    count = 21150
    pitches = [523.25 * 2 ** (step / 12) for step in (0, 4, 7, 12, 16, 19, 24)]
    sweep = sum(_bell(count, 900 * i, pitch, 5.5) * (0.9 - 0.06 * i) for i, pitch in enumerate(pitches))
    return _samples(sweep * _fades(count, 40, 6000), 0.72)


def level():
    """A rising figure of four notes, the last one held."""
    count = 21150
    notes = ((0, 392.0, 9), (2300, 523.25, 9), (4600, 659.26, 9), (6900, 783.99, 3.4), (6900, 1046.5, 3.4))
    figure = sum(_bell(count, at, pitch, decay) for at, pitch, decay in notes)
    return _samples(figure * _fades(count, 40, 6000), 0.74)
