#!/usr/bin/env python3
"""Time from a press on a cell to the first sample of its sound at the audio output.

Starts the game with sound on under its own Xvfb display, against a private PulseAudio server
with a null sink, records the sink's monitor with parec, starts a game with F2 and presses the
right button on one cell once a second, half-way between two clock ticks, so each press's sound
stands alone. The press goes through XTest; the sound's first sample is the first one of the
recording louder than a quiet threshold after it, timed by when its block of the recording
arrived. Prints every delay and their median. Needs pulseaudio, pulseaudio-utils, xvfb and
xdotool.
    bench/press_latency.py <velkaro binary> [presses]
"""
import ctypes
import os
import statistics
import subprocess
import sys
import tempfile
import threading
import time

RATE = 22050
THRESHOLD = 256  # 16-bit samples: well above silence, well below any sound's first wave


class Recording:
    """The sink's monitor, as (arrival time, samples) blocks, read by a thread of its own."""

    def __init__(self):
        self.blocks = []
        self.process = subprocess.Popen(
            ['parec', '-d', 'null.monitor', '--raw', '--format=s16le', f'--rate={RATE}',
             '--channels=1', '--latency-msec=1'], stdout=subprocess.PIPE)
        threading.Thread(target=self.read, daemon=True).start()

    def read(self):
        pending = b''
        while True:
            data = os.read(self.process.stdout.fileno(), 4096)
            if not data:
                return
            arrived = time.monotonic()
            pending += data
            whole = len(pending) // 2 * 2
            samples = memoryview(pending[:whole]).cast('h').tolist()
            pending = pending[whole:]
            self.blocks.append((arrived, samples))

    def onsets(self, since, until):
        """Times of the first loud sample after each silence of 50 ms or more."""
        found = []
        last_loud = None
        for arrived, samples in list(self.blocks):
            for index, sample in enumerate(samples):
                if abs(sample) < THRESHOLD:
                    continue
                at = arrived - (len(samples) - 1 - index) / RATE
                if since < at < until and (last_loud is None or at - last_loud > 0.05):
                    found.append(at)
                last_loud = at
        return found


class Pointer:
    """Presses through XTest, as a real mouse would."""

    def __init__(self):
        self.x11 = ctypes.CDLL('libX11.so.6')
        self.xtst = ctypes.CDLL('libXtst.so.6')
        self.x11.XOpenDisplay.restype = ctypes.c_void_p
        self.x11.XFlush.argtypes = [ctypes.c_void_p]
        self.xtst.XTestFakeMotionEvent.argtypes = [ctypes.c_void_p] + [ctypes.c_int] * 3 + [
            ctypes.c_ulong]
        self.xtst.XTestFakeButtonEvent.argtypes = [ctypes.c_void_p, ctypes.c_uint, ctypes.c_int,
                                                   ctypes.c_ulong]
        self.display = self.x11.XOpenDisplay(None)

    def move(self, x, y):
        self.xtst.XTestFakeMotionEvent(self.display, -1, x, y, 0)
        self.x11.XFlush(self.display)

    def button(self, down):
        self.xtst.XTestFakeButtonEvent(self.display, 3, down, 0)
        self.x11.XFlush(self.display)


def window_centre():
    while True:
        found = subprocess.run(['xdotool', 'search', '--name', '^Velkaro'],
                               capture_output=True, text=True).stdout.split()
        if found:
            break
        time.sleep(0.2)
    geometry = subprocess.run(['xdotool', 'getwindowgeometry', '--shell', found[0]],
                              capture_output=True, text=True).stdout
    values = dict(line.split('=') for line in geometry.split())
    # The middle of an Easy window lies on a cell of the field.
    return (found[0], int(values['X']) + int(values['WIDTH']) // 2,
            int(values['Y']) + int(values['HEIGHT']) // 2)


def measure(binary, presses):
    game = subprocess.Popen([binary], stderr=subprocess.DEVNULL)
    try:
        window, x, y = window_centre()
        recording = Recording()
        pointer = Pointer()
        pointer.move(x, y)
        time.sleep(3)  # past the start-up sound
        subprocess.run(['xdotool', 'windowfocus', '--sync', window, 'key', 'F2'], check=True)
        started = time.monotonic()
        time.sleep(2.5)
        delays = []
        for _ in range(presses):
            ticks = recording.onsets(started, time.monotonic())
            # Half-way to the next tick, counted from the last one heard.
            time.sleep(max(0.0, ticks[-1] + 0.45 - time.monotonic()) if ticks else 0.45)
            pressed = time.monotonic()
            pointer.button(True)
            time.sleep(0.3)
            pointer.button(False)
            time.sleep(0.25)
            heard = recording.onsets(pressed, pressed + 0.5)
            if heard:
                delays.append((heard[0] - pressed) * 1000)
                print(f'  {delays[-1]:6.1f} ms', flush=True)
            else:
                print('  not heard within 500 ms', flush=True)
            time.sleep(0.1)
        recording.process.kill()
        return delays
    finally:
        game.kill()
        game.wait()


def main():
    binary = os.path.realpath(sys.argv[1])
    presses = int(sys.argv[2]) if len(sys.argv) > 2 else 30
    with tempfile.TemporaryDirectory() as work:
        os.environ['XDG_RUNTIME_DIR'] = os.path.join(work, 'run')
        os.environ['XDG_CONFIG_HOME'] = os.path.join(work, 'config')
        os.makedirs(os.environ['XDG_RUNTIME_DIR'], mode=0o700)
        os.makedirs(os.path.join(work, 'config', 'Velkaro'))
        with open(os.path.join(work, 'config', 'Velkaro', 'Velkaro.ini'), 'w') as settings:
            settings.write('[Game]\nSound=True\n')
        server = subprocess.Popen(
            ['pulseaudio', '-n', '--daemonize=no', '--exit-idle-time=-1',
             '--load=module-null-sink', '--load=module-native-protocol-unix',
             '--load=module-suspend-on-idle'], stderr=subprocess.DEVNULL)
        display = subprocess.Popen(['Xvfb', '-displayfd', '1', '-screen', '0', '1024x768x24'],
                                   stdout=subprocess.PIPE, stderr=subprocess.DEVNULL, text=True)
        try:
            os.environ['DISPLAY'] = ':' + display.stdout.readline().strip()
            while subprocess.run(['pactl', 'info'], capture_output=True).returncode != 0:
                time.sleep(0.1)
            delays = measure(binary, presses)
        finally:
            display.kill()
            server.kill()
    if delays:
        print(f'press to first sample: median {statistics.median(delays):.1f} ms, '
              f'{len(delays)} of {presses} presses heard, '
              f'range {min(delays):.1f} to {max(delays):.1f} ms')


if __name__ == '__main__':
    main()
