#!/bin/sh
# Makes the clips of the media tests, tiny and real, in the folder given. Needs ffmpeg.
set -eu
folder=$1
mkdir -p "$folder"
cd "$folder"

ff() { ffmpeg -nostdin -hide_banner -loglevel error -y "$@"; }
picture="testsrc2=size=64x64:rate=25"
sound="sine=frequency=440:sample_rate=44100"

av() { # seconds, file, further options
    seconds=$1 file=$2
    shift 2
    ff -f lavfi -i "$picture" -f lavfi -i "$sound" -t "$seconds" -pix_fmt yuv420p "$@" "$file"
}

# Very short ones, and ones of ordinary length.
av 0.3 short.mp4 -c:v libx264 -c:a aac
av 0.3 short.mkv -c:v libx264 -c:a aac
av 0.3 short.avi -c:v mpeg4 -c:a libmp3lame
av 0.3 short.webm -c:v libvpx -c:a libopus
av 2 two.mp4 -c:v libx264 -g 250 -c:a aac
av 3 three.mkv -c:v libx264 -g 250 -c:a aac
av 1.2 stream.ts -c:v libx264 -c:a aac
av 1 silent.mp4 -c:v libx264 -an

# Pictures of one colour, of two sizes, with sound.
for clip in red:64x64 blue:128x72; do
    ff -f lavfi -i "color=${clip%:*}:size=${clip#*:}:rate=25" -f lavfi -i "$sound" -t 1 \
        -pix_fmt yuv420p -c:v libx264 -c:a aac "${clip%:*}.mp4"
done

# Sound only.
for file in short.wav short.mp3 short.ogg short.flac; do
    ff -f lavfi -i "$sound" -t 0.3 "$file"
done
ff -f lavfi -i "$sound" -t 1 one.wav
ff -f lavfi -i "$sound" -t 2 two.wav
ff -f lavfi -i "$sound" -t 1 -c:a libvorbis one.ogg
ff -f lavfi -i "$sound" -t 1 one.mp3
ff -f lavfi -i "sine=frequency=1000:sample_rate=48000" -t 0.5 -c:a pcm_f32le level.wav

# The same noise, loud and 26 decibels below, and a tone that is long enough to be slowed down.
noise="anoisesrc=color=pink:amplitude=0.5:sample_rate=48000:seed=7,tremolo=f=3:d=0.8"
ff -f lavfi -i "$noise" -t 6 loud.wav
ff -f lavfi -i "$noise,volume=-26dB" -t 6 quiet.wav
ff -f lavfi -i "sine=frequency=440:sample_rate=48000" -t 2 tone.wav

# Two languages: tones of 440 and 880 Hz, and a text at the lower edge of a black picture.
cat >text.srt <<'END'
1
00:00:00,000 --> 00:00:03,000
MMMMMMMM
END
high="sine=frequency=880:sample_rate=48000"
ff -f lavfi -i "color=black:size=320x240:rate=25" -f lavfi -i "$sound" -f lavfi -i "$high" \
    -i text.srt -t 2 -map 0 -map 1 -map 2 -map 3 -pix_fmt yuv420p -c:v libx264 -c:a aac -c:s srt \
    -metadata:s:a:0 language=eng -metadata:s:a:1 language=rus -metadata:s:a:1 title=Commentary \
    -metadata:s:s:0 language=rus -disposition:a:0 default -disposition:s:0 default languages.mkv

# Bursts of a tenth of a second at 0.5, 1.25 and 2.0 in silence, in what holds sound.
bursts="aevalsrc=if(between(t\,0.5\,0.6)+between(t\,1.25\,1.35)+between(t\,2\,2.1)\,\
0.8*sin(2*PI*1000*t)\,0):s=48000:d=2.5"
ff -f lavfi -i "$bursts" bursts.wav
for file in bursts.mp3 bursts.mp4 bursts.opus bursts.ogg bursts.flac bursts.ac3; do
    ff -i bursts.wav "$file"
done
ff -i bursts.wav bursts.sox # a container that the player does not open
ff -i bursts.wav -c:a aac bursts.mkv
ff -i bursts.wav -c:a libopus bursts.webm
for format in u8 s24le s32le f32le f64le; do
    ff -i bursts.wav -c:a "pcm_$format" "bursts_$format.wav"
done
ff -i bursts.wav -ac 6 -c:a aac surround.mp4
ff -f lavfi -i "$picture" -i bursts.wav -t 2.5 -pix_fmt yuv420p -c:v libx264 -c:a aac bursts.ts
for file in late.mkv late.mp4; do
    ff -f lavfi -i "$picture" -itsoffset 0.5 -i bursts.wav -t 3 -pix_fmt yuv420p -c:v libx264 \
        -c:a aac "$file"
done
for file in offset.mkv offset.mp4; do
    ff -i bursts.wav -c:a aac -output_ts_offset 10 "$file"
done
ff -ss 0.7 -i late.mp4 -c copy cut.mp4

# Chapters, and lines of text with markup.
cat >chapters.txt <<'END'
;FFMETADATA1
[CHAPTER]
TIMEBASE=1/1000
START=0
END=800
title=Beginning
[CHAPTER]
TIMEBASE=1/1000
START=800
END=1730
title=Середина
[CHAPTER]
TIMEBASE=1/1000
START=1730
END=2500
END
cat >lines.srt <<'END'
1
00:00:00,250 --> 00:00:00,900
<i>Good</i> day,

2
00:00:01,040 --> 00:00:01,600
how are
<b>you?</b>

3
00:00:01,770 --> 00:00:02,300
Хорошо
END
for file in texts.mkv texts.mp4; do
    codec=srt
    case $file in *.mp4) codec=mov_text ;; esac
    ff -f lavfi -i "$picture" -i bursts.wav -i lines.srt -i chapters.txt -map 0 -map 1 -map 2 \
        -map_metadata 3 -t 2.5 -pix_fmt yuv420p -c:v libx264 -c:a aac -c:s $codec \
        -metadata:s:s:0 language=rus "$file"
done
ff -i bursts.wav -i lines.srt -map 0 -map 1 -c:a flac -c:s ass texts_ass.mkv
ff -i texts.mkv -c copy -output_ts_offset 10 texts_offset.mkv
# Subtitles that are pictures, a white bar at the lower edge of a black picture. Made of the
# segments of a stream of them: what is on the screen, its window, its two colours, its lines of
# 160 pixels, the end; and later an empty screen.
bytes() { for byte in $1; do printf "\\$(printf %o "0x$byte")"; done; }
segment() { # time in 1/90000 s, kind, size, content; all hexadecimal
    bytes "50 47 $1 00 00 00 00 $2 $3 $4"
}
lines=$(for _ in 1 2 3 4 5 6 7 8 9 10 11 12 13 14 15 16 17 18 19 20; do
    echo "00 C0 A0 01 00 00"
done)
from="00 00 00 00" to="00 02 BF 20"
{
    segment "$from" 16 "00 13" "01 40 00 F0 10 00 00 80 00 00 01 00 00 00 00 00 50 00 C8"
    segment "$from" 17 "00 0A" "01 00 00 50 00 C8 00 A0 00 14"
    segment "$from" 14 "00 07" "00 00 01 EB 80 80 FF"
    segment "$from" 15 "00 83" "00 00 00 C0 00 00 7C 00 A0 00 14 $lines"
    segment "$from" 80 "00 00" ""
    segment "$to" 16 "00 0B" "01 40 00 F0 10 00 01 00 00 00 00"
    segment "$to" 80 "00 00" ""
} >white.sup
ff -f lavfi -i "color=black:size=320x240:rate=25" -i white.sup -t 3 -map 0 -map 1 \
    -pix_fmt yuv420p -c:v libx264 -c:s dvdsub pictures.mkv

# Pictures with holes, and one whose colours have ten bits.
holes="format=rgba,geq=r=X*4:g=Y*4:b=100:a='if(lt(X,20),0,if(lt(X,40),128,255))'"
ff -f lavfi -i "$picture,$holes" -frames:v 1 -c:v png holes_still.mkv
ff -f lavfi -i "$picture,$holes" -t 1 -c:v ffv1 -pix_fmt bgra holes.mkv
ff -f lavfi -i "$picture,$holes" -t 1 holes.gif
ff -f lavfi -i "$picture" -t 1 -pix_fmt yuv420p10le -c:v ffv1 ten.mkv
ff -f lavfi -i "$picture" -t 1 -pix_fmt gray -c:v ffv1 gray.mkv

# Sound with a cover, and one of more than 64 megapixels.
ff -f lavfi -i "color=red:size=300x200" -frames:v 1 cover.png
ff -f lavfi -i "color=red:size=9000x9000" -frames:v 1 large.png
covered() { # picture, file
    ff -f lavfi -i "$sound" -i "$1" -t 1 -map 0 -map 1 -c:v copy -disposition:v:0 attached_pic "$2"
}
for file in covered.mp3 covered.m4a covered.flac; do
    covered cover.png $file
done
covered large.png large.mp3
rm large.png

# Two sounds of different lengths.
ff -f lavfi -i "$sound" -t 2.4 longer.wav
ff -i longer.wav -i longer.wav -filter_complex "[0:a]atrim=end=0.8[a]" -map "[a]" -map 1:a \
    -c:a flac lengths.mka

# Bare streams.
ff -f lavfi -i "$picture" -t 0.6 -pix_fmt yuv420p -c:v libx264 raw.h264
ff -f lavfi -i "$picture" -t 0.6 -pix_fmt yuv420p -c:v libx265 -x265-params log-level=none raw.hevc
ff -f lavfi -i "$picture" -t 3 -pix_fmt yuv420p -c:v libx264 long.h264
ff -f lavfi -i "$picture" -t 0.6 -c:v mpeg4 -f m4v raw.m4v
ff -f lavfi -i "$picture" -t 0.6 -c:v mpeg2video -f mpeg2video raw.m2v
ff -f lavfi -i "$sound" -t 0.6 -c:a aac raw.aac
ff -f lavfi -i "$sound" -t 0.6 -c:a aac -f latm raw.loas
ff -f lavfi -i "$sound" -t 0.6 -c:a ac3 raw.ac3
ff -f lavfi -i "$sound" -t 0.6 -c:a eac3 raw.eac3
ff -f lavfi -i "$sound" -t 0.6 -ar 48000 -c:a dca -strict -2 -f dts raw.dts
ff -f lavfi -i "$sound" -t 0.6 -write_xing 0 -id3v2_version 0 raw.mp3

# Every picture has a shade of its own: number n is 20 + 3 n, so an exact seek can be read off.
shades="color=black:size=64x64:rate=25,format=gray,geq=lum='20+3*N',format=yuv420p"
ff -f lavfi -i "$shades" -t 3 -c:v libx264 -qp 4 -g 250 -bf 2 shades.mp4
ff -f lavfi -i "$shades" -t 3 -c:v libx264 -qp 4 -g 50 -muxdelay 0 shades.ts
ff -f lavfi -i "$shades" -t 3 -c:v mpeg2video -q:v 1 -g 50 -f mpeg shades.mpg

# White on its left half, black on its right one.
ff -f lavfi -i "color=black:size=64x64:rate=25,drawbox=w=32:h=64:color=white:t=fill" -t 1 \
    -pix_fmt yuv420p -c:v libx264 sides.mp4

# Lengths that are wrong or unknown, and files that break off.
ff -i three.mkv -c copy -movflags +faststart whole.mp4
ff -i three.mkv -c:v mpeg4 -c:a libmp3lame whole.avi
cut_to() { head -c "$(($(wc -c <"$1") * $2 / 100))" "$1" >"$3"; }
cut_to whole.mp4 60 broken.mp4
cut_to three.mkv 60 broken.mkv
cut_to whole.avi 60 broken.avi
cut_to stream.ts 60 broken.ts
cut_to one.wav 50 broken.wav
ff -i short.mkv -c copy -f matroska -live 1 pipe:1 >unknown.mkv

# A file whose media lies elsewhere is made from this one: its index comes after its media.
av 0.4 plain.mov -c:v libx264 -c:a aac

# No media.
: >empty.mp4
head -c 20000 /dev/urandom >noise.mp4
echo "This is a text." >text.mp4
head -c 3000 whole.mp4 >headonly.mp4
