#!/usr/bin/env python3
"""Synthesizes the five sound effects into assets/sounds/wave101.wav .. wave105.wav.

All are PCM, mono, 8-bit unsigned (silence 128). Each file keeps the exact layout the player
must cope with: 101 carries an 18-byte format chunk, 102 an INFO list after its samples, 103 a
RIFF length that leaves out the pad byte after its odd-sized samples, and 105 two stray bytes
after its RIFF chunk. Run from anywhere: python3 tools/make_waves.py
"""
import math
import os
import random
import struct

OUT = os.path.join(os.path.dirname(os.path.abspath(__file__)), "..", "assets", "sounds")


def envelope(i, n, attack, release):
    """Linear fade-in over `attack` samples and fade-out over the last `release` samples."""
    gain = 1.0
    if attack and i < attack:
        gain = i / attack
    if release and i >= n - release:
        gain = min(gain, (n - 1 - i) / release)
    return gain


def to_bytes(samples):
    """Floats in [-1, 1] to unsigned 8-bit with silence at 128."""
    return bytes(max(0, min(255, 128 + round(127 * s))) for s in samples)


def click(n, rate):
    """A sharp wooden press: a 2.2 kHz knock over a burst of noise, both dying in ~10 ms."""
    noise = random.Random(101)
    out = []
    for i in range(n):
        t = i / rate
        decay = math.exp(-t / 0.006)
        knock = math.sin(2 * math.pi * 2200 * t) * 0.6 + math.sin(2 * math.pi * 900 * t) * 0.3
        out.append((knock + (noise.random() * 2 - 1) * 0.4) * decay * envelope(i, n, 4, 40) * 0.8)
    return out


def loss(n, rate):
    """A blast: low-passed noise rumbling away under a tone that falls from 420 Hz to 70 Hz."""
    noise = random.Random(102)
    out = []
    smooth = 0.0
    phase = 0.0
    for i in range(n):
        t = i / rate
        frac = i / n
        smooth += (noise.random() * 2 - 1 - smooth) * (0.55 - 0.45 * frac)
        rumble = smooth * math.exp(-t / 0.35) * 1.6
        freq = 70 + 350 * (1 - frac) ** 2
        phase += 2 * math.pi * freq / rate
        fall = (math.sin(phase) + 0.3 * math.sin(2 * phase)) * 0.45 * (1 - frac) ** 0.5
        out.append(max(-1.0, min(1.0, rumble + fall)) * envelope(i, n, 8, 400) * 0.9)
    return out


def win(n, rate):
    """A bright rising arpeggio, C E G, landing on a held high C that rings out."""
    notes = [(523.25, 0.0, 0.16), (659.25, 0.16, 0.16), (783.99, 0.32, 0.16),
             (1046.50, 0.48, 0.66)]
    out = [0.0] * n
    for freq, start, length in notes:
        first = int(start * rate)
        count = min(int(length * rate), n - first)
        for k in range(count):
            t = k / rate
            tone = math.sin(2 * math.pi * freq * t) + 0.35 * math.sin(4 * math.pi * freq * t)
            ring = math.exp(-t / (0.09 if length < 0.5 else 0.3))
            out[first + k] += tone * ring * envelope(k, count, 40, 120) * 0.6
    return [s * envelope(i, n, 0, 200) for i, s in enumerate(out)]


def warning(n, rate):
    """Three urgent two-tone beeps (1000 Hz then 750 Hz) with short gaps."""
    out = []
    beep = int(0.2 * rate)
    gap = int(0.065 * rate)
    period = beep + gap
    for i in range(n):
        k = i % period
        if k >= beep:
            out.append(0.0)
            continue
        freq = 1000 if k < beep // 2 else 750
        square = 1.0 if math.sin(2 * math.pi * freq * k / rate) >= 0 else -1.0
        out.append(square * 0.55 * envelope(k, beep, 24, 24) * envelope(i, n, 0, 24))
    return out


def tick(n, rate):
    """A tiny dry tick: a few cycles of 4.4 kHz that die within the 53 samples."""
    out = []
    for i in range(n):
        t = i / rate
        out.append(math.sin(2 * math.pi * 4410 * t) * math.exp(-t / 0.0006) * 0.7)
    out[-1] = 0.0
    return out


def chunk(tag, payload, pad=True):
    data = tag + struct.pack("<I", len(payload)) + payload
    if pad and len(payload) % 2:
        data += b"\0"
    return data


def fmt_payload(rate, extension=False):
    # PCM, 1 channel, byte rate = rate (one byte a frame), block align 1, 8 bits.
    payload = struct.pack("<HHIIHH", 1, 1, rate, rate, 1, 8)
    if extension:
        payload += struct.pack("<H", 0)
    return payload


def info_list():
    body = b"INFO" + chunk(b"INAM", b"Velkaro game lost\0") + chunk(b"ISFT", b"make_waves\0\0")
    return chunk(b"LIST", body)


def build(wave_id, rate, count, synth):
    samples = to_bytes(synth(count, rate))
    assert len(samples) == count
    fmt = chunk(b"fmt ", fmt_payload(rate, extension=(wave_id == 101)))
    data = chunk(b"data", samples)
    body = b"WAVE" + fmt + data
    trailer = b""
    riff_length = len(body)
    if wave_id == 102:
        body += info_list()
        riff_length = len(body)
    elif wave_id == 103:
        riff_length -= 1  # the pad byte is written but not counted
    elif wave_id == 105:
        trailer = b"\0\0"
    return b"RIFF" + struct.pack("<I", riff_length) + body + trailer


SOUNDS = [
    # id, rate, sample bytes, file size, synthesizer
    (101, 22050, 698, 744, click),
    (102, 8000, 7605, 7708, loss),
    (103, 8000, 9131, 9176, win),
    (104, 8000, 6352, 6396, warning),
    (105, 22050, 53, 100, tick),
]


def main():
    os.makedirs(OUT, exist_ok=True)
    for wave_id, rate, count, size, synth in SOUNDS:
        image = build(wave_id, rate, count, synth)
        assert len(image) == size, (wave_id, len(image), size)
        with open(os.path.join(OUT, f"wave{wave_id}.wav"), "wb") as out:
            out.write(image)


if __name__ == "__main__":
    main()
