"""What audio files hold, told by ffmpeg's tools."""

import json
import subprocess


def probe(path):
    """codec_name, channels, sample_rate, bit_rate, duration and the like of the audio stream."""
    done = subprocess.run(
        ["ffprobe", "-v", "error", "-select_streams", "a:0", "-show_streams", "-show_format",
         "-of", "json", path], stdout=subprocess.PIPE, check=True)
    found = json.loads(done.stdout)
    return {**found["format"], **found["streams"][0]}


def decoded_seconds(path):
    """The length of what really plays, found by decoding all of it."""
    done = subprocess.run(["ffmpeg", "-v", "error", "-i", path, "-f", "s16le", "-ac", "1", "-ar",
                           "16000", "-"], stdout=subprocess.PIPE, check=True)
    return len(done.stdout) / 2 / 16000
