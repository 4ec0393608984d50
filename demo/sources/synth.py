"""Plays the notes of a MIDI file into a WAV file: synth.py box|organ SECONDS FILE.midi FILE.wav"""
import math
import struct
import sys
import wave

RATE = 22050
# Strength of each harmonic, seconds of attack, and how fast the tone dies away (per second).
SOUNDS = {
    "box": ({1: 1.0, 2: 0.25, 3: 0.3, 5.4: 0.12}, 0.004, 2.6),
    "organ": ({1: 1.0, 2: 0.5, 3: 0.18, 4: 0.22, 6: 0.06}, 0.03, 0.25),
}


def varlen(data, at):
    value = 0
    while True:
        value = value << 7 | data[at] & 127
        at += 1
        if data[at - 1] < 128:
            return value, at


def events(data):
    """Every event of every track: (tick, kind, first byte or meta payload, second byte)."""
    at = 14
    while at < len(data):
        end = at + 8 + struct.unpack(">I", data[at + 4:at + 8])[0]
        at, tick, status = at + 8, 0, 0
        while at < end:
            delta, at = varlen(data, at)
            tick += delta
            if data[at] >= 128:
                status, at = data[at], at + 1
            if status >= 0xF0:
                kind = data[at] if status == 0xFF else -1
                size, at = varlen(data, at + (status == 0xFF))
                if kind == 0x51:
                    yield tick, "tempo", int.from_bytes(data[at:at + size], "big"), 0
                at += size
            else:
                size = 1 if status >> 4 in (0xC, 0xD) else 2
                if status >> 4 in (8, 9):
                    sounding = status >> 4 == 9 and data[at + 1] > 0
                    yield tick, "on" if sounding else "off", data[at], status & 15
                at += size


def notes(data):
    """(start, end, pitch) in seconds."""
    per_quarter = struct.unpack(">H", data[12:14])[0]
    order = {"tempo": 0, "off": 1, "on": 2}
    now, last, tempo, open_notes, found = 0.0, 0, 500000, {}, []
    for tick, kind, value, channel in sorted(events(data), key=lambda e: (e[0], order[e[1]])):
        now += (tick - last) * tempo / per_quarter / 1e6
        last = tick
        if kind == "tempo":
            tempo = value
        elif kind == "on":
            open_notes[value, channel] = now
        elif (value, channel) in open_notes:
            found.append((open_notes.pop((value, channel)), now, value))
    return found


def render(found, seconds, sound):
    harmonics, attack, decay = SOUNDS[sound]
    ring = 1.2 if sound == "box" else 0.12
    mix = [0.0] * int(seconds * RATE)
    for start, end, pitch in found:
        first = int(start * RATE)
        length = min(int((end - start + ring) * RATE), len(mix) - first)
        held = (end - start) * RATE
        base = 2 * math.pi * 440 * 2 ** ((pitch - 69) / 12) / RATE
        level = 0.7 if pitch < 60 else 1.0
        for i in range(max(length, 0)):
            envelope = level * min(1.0, i / RATE / attack) * math.exp(-decay * i / RATE)
            if i > held:
                envelope *= max(0.0, 1 - (i - held) / (ring * RATE))
            mix[first + i] += envelope * sum(
                strength * math.sin(base * n * i) for n, strength in harmonics.items())
    fade = int(1.5 * RATE)
    for i in range(min(fade, len(mix))):
        mix[-1 - i] *= i / fade
    return mix


def main():
    sound, seconds, source, target = sys.argv[1:]
    with open(source, "rb") as file:
        mix = render(notes(file.read()), float(seconds), sound)
    peak = max(max(mix), -min(mix)) / 28000
    with wave.open(target, "wb") as out:
        out.setnchannels(1)
        out.setsampwidth(2)
        out.setframerate(RATE)
        out.writeframes(struct.pack("<%dh" % len(mix), *(int(v / peak) for v in mix)))


main()
