#!/usr/bin/python3
"""Makes the pictures of this folder, and in seen/ what they look like. Most are confirmed by another program; one that
it sees differently stops the script. Needs python3-pil, imagemagick and libmagickcore-6.q16-6-extra.

pictures.txt has a line for each picture: its file, its pixels, and, where they differ, how it is shown.

    make.py
"""

import io
import pathlib
import struct
import subprocess
import zlib

from PIL import Image, ImageCms, ImageDraw

FOLDER = pathlib.Path(__file__).parent
WIDTH, HEIGHT = 7, 5
NOTES = []


def five_bits(value):
    return value >> 3 << 3 | value >> 5


def sample(mode):
    """Every pixel differs from its neighbours; the colours survive five bits, and their halves do not."""
    image = Image.new('RGBA', (WIDTH, HEIGHT))
    for y in range(HEIGHT):
        for x in range(WIDTH):
            image.putpixel((x, y), (five_bits(x * 36), five_bits(y * 60), five_bits((x * y * 37) % 256),
                                    255 if (x + y) % 3 else 0))
    return image.convert(mode)


def runs(mode):
    """Long runs, over the ends of the rows too."""
    image = sample(mode)
    for x in range(WIDTH):
        for y in range(2):
            image.putpixel((x, y), image.getpixel((3, 1)))
    return image


def write(name, data):
    (FOLDER / name).parent.mkdir(parents=True, exist_ok=True)
    (FOLDER / name).write_bytes(data)


def read_by_imagemagick(name, *options):
    def output(*to):
        command = ['convert', *options, f'{FOLDER / name}[0]', '-auto-orient', '-depth', '8', *to]
        return subprocess.run(command, check=True, capture_output=True).stdout
    width, height = output('-format', '%w', 'info:-'), output('-format', '%h', 'info:-')
    return Image.frombytes('RGBA', (int(width), int(height)), output('rgba:-'))


def convert(source, name, *options):
    """An image through imagemagick into a file."""
    png = io.BytesIO()
    source.save(png, 'png')
    (FOLDER / name).parent.mkdir(parents=True, exist_ok=True)
    subprocess.run(['convert', 'png:-', '-strip', *options, str(FOLDER / name)], input=png.getvalue(), check=True)


def save(source, name, **options):
    (FOLDER / name).parent.mkdir(parents=True, exist_ok=True)
    source.save(FOLDER / name, **options)


def keep(image):
    """The name of the image in seen/, where equal ones are kept once."""
    image = Image.frombytes('RGBA', image.size, image.convert('RGBA').tobytes())
    content = struct.pack('<II', *image.size) + image.tobytes()
    name = f'seen/{zlib.crc32(content):08x}.png'
    (FOLDER / 'seen').mkdir(exist_ok=True)
    image.save(FOLDER / name, optimize=True)
    return name


def note(name, *images):
    NOTES.append(' '.join([name, *(keep(image) for image in images)]))


def expect(name, image, read=None, difference=0):
    """Notes what the file has to look like, which another program has to confirm but for a difference."""
    image = image.convert('RGBA')
    seen = (read or read_by_imagemagick)(name)
    pairs = zip(seen.tobytes(), image.tobytes(), strict=True)
    if any(abs(one - other) > difference for one, other in pairs):
        raise SystemExit(f'{name}: seen differently\n{list(seen.getdata())}\n{list(image.getdata())}')
    note(name, image)


# Targa

def packets(pixels):
    """Runs and raw packets of the pixels, as bytes."""
    result = b''
    index = 0
    while index < len(pixels):
        run = 1
        while index + run < len(pixels) and run < 128 and pixels[index + run] == pixels[index]:
            run += 1
        if run > 1:
            result += bytes([127 + run]) + pixels[index]
            index += run
            continue
        raw = 1
        while index + raw < len(pixels) and raw < 128 and pixels[index + raw] != pixels[index + raw - 1]:
            raw += 1
        result += bytes([raw - 1]) + b''.join(pixels[index:index + raw])
        index += raw
    return result


def stored(color, depth):
    red, green, blue, alpha = color
    if depth in (15, 16):
        top = 1 if alpha and depth == 16 else 0
        return struct.pack('<H', top << 15 | red >> 3 << 10 | green >> 3 << 5 | blue >> 3)
    return bytes([blue, green, red]) + (bytes([alpha]) if depth == 32 else b'')


def targa(image, kind, depth, encode, corner='bl', bits=0, colors=(), first=0, map_depth=0, identity=b''):
    """`encode` makes a pixel's bytes of its colour."""
    descriptor = bits | (0x10 if 'r' in corner else 0) | (0x20 if 't' in corner else 0)
    rows = [[image.getpixel((x, y)) for x in range(WIDTH)] for y in range(HEIGHT)]
    if 'b' in corner:
        rows.reverse()
    if 'r' in corner:
        rows = [row[::-1] for row in rows]
    pixels = [encode(color) for row in rows for color in row]
    header = struct.pack('<BBBHHBHHHHBB', len(identity), 1 if colors else 0, kind, first, len(colors), map_depth, 0, 0,
                         WIDTH, HEIGHT, depth, descriptor)
    table = b''.join(stored(color, map_depth) for color in colors)
    return header + identity + table + (packets(pixels) if kind & 8 else b''.join(pixels))


def make_targas():
    for depth, source in ((15, runs('RGB')), (16, runs('RGB')), (24, runs('RGB')), (32, runs('RGBA'))):
        image = source.convert('RGBA')
        for kind, packing in ((2, 'raw'), (10, 'rle')):
            for corner in ('bl', 'br', 'tl', 'tr'):
                name = f'tga/color-{depth}-{packing}-{corner}.tga'
                bits = 8 if depth == 32 else 0
                write(name, targa(image, kind, depth, lambda color, d=depth: stored(color, d), corner, bits))
                # Of fewer bits the others know less: their corners, and packets that go on in the next row.
                by_others = None if depth >= 24 else by_pillow
                is_known = depth >= 24 or (depth == 16 and packing == 'raw' and 'r' not in corner)
                expect(name, image, by_others if is_known else lambda _, i=image: i, 1 if depth == 16 else 0)
    make_targas_with_tables()
    make_grey_targas()
    make_targas_of_others()


def by_pillow(name):
    return Image.open(FOLDER / name).convert('RGBA')


def make_targas_with_tables():
    image = runs('RGBA')
    for map_depth, source in ((15, runs('RGB')), (16, runs('RGB')), (24, runs('RGB')), (32, image)):
        image = source.convert('RGBA')
        colors = sorted(set(image.getdata()))
        for first in (0, 5):
            for kind, packing in ((1, 'raw'), (9, 'rle')):
                name = f'tga/mapped-{map_depth}-{packing}-{first}.tga'
                write(name, targa(image, kind, 8, lambda color: bytes([colors.index(color) + first]), 'tl',
                                  8 if map_depth == 32 else 0, colors, first, map_depth, b'a note'))
                expect(name, image, lambda _, i=image: i)
    colors = sorted(set(image.getdata()))
    name = 'tga/mapped-wide.tga'
    write(name, targa(image, 1, 16, lambda color: struct.pack('<H', colors.index(color)), 'bl', 8, colors, 0, 32))
    expect(name, image, lambda _: image)


def make_grey_targas():
    grey = runs('L')
    for kind, packing in ((3, 'raw'), (11, 'rle')):
        name = f'tga/grey-8-{packing}.tga'
        write(name, targa(grey, kind, 8, lambda value: bytes([value])))
        expect(name, grey)
        pair = Image.merge('LA', (grey, runs('RGBA').getchannel('A')))
        name = f'tga/grey-16-{packing}.tga'
        write(name, targa(pair, kind, 16, bytes, bits=8))
        expect(name, pair, by_pillow if kind == 3 else lambda _: pair.convert('RGBA'))


def make_targas_of_others():
    for mode in ('RGB', 'RGBA', 'L', 'P', 'LA'):
        for compression in ('', 'tga_rle'):
            name = f'tga/pillow-{mode}{compression and "-rle"}.tga'
            image = runs('RGB').convert('P', palette=Image.Palette.ADAPTIVE) if mode == 'P' else runs(mode)
            save(image, name, **({'compression': compression} if compression else {}))
            expect(name, image, by_pillow)
    for mode in ('RGB', 'RGBA'):
        for compression in ('None', 'RLE'):
            name = f'tga/imagemagick-{mode}-{compression}.tga'
            convert(runs(mode), name, '-compress', compression, '-orient', 'TopLeft')
            expect(name, runs(mode))
    convert(runs('L'), 'tga/imagemagick-grey.tga', '-type', 'Grayscale', '-orient', 'BottomLeft', '-flip')
    expect('tga/imagemagick-grey.tga', runs('L'))
    convert(runs('RGB'), 'tga/imagemagick-palette.tga', '-type', 'Palette', '-orient', 'TopLeft')
    expect('tga/imagemagick-palette.tga', runs('RGB'))


# Bitmaps

def bitmap(depth, rows, colors=(), compression=0, height=HEIGHT, masks=b'', core=False):
    table = b''.join(bytes([c[2], c[1], c[0]]) + (b'' if core else b'\0') for c in colors)
    if core:
        header = struct.pack('<IHHHH', 12, WIDTH, HEIGHT, 1, depth)
    else:
        header = struct.pack('<IiiHHIIiiII', 40, WIDTH, height, 1, depth, compression, len(rows), 2835, 2835,
                             len(colors), 0)
    before = header + masks + table
    return struct.pack('<2sIHHI', b'BM', 14 + len(before) + len(rows), 0, 0, 14 + len(before)) + before + rows


def rows_of(image, encode, up=True):
    result = b''
    for y in (range(HEIGHT - 1, -1, -1) if up else range(HEIGHT)):
        row = encode([image.getpixel((x, y)) for x in range(WIDTH)])
        result += row + b'\0' * (-len(row) % 4)
    return result


def packed(indexes, bits):
    value = 0
    for index in indexes:
        value = value << bits | index
    filling = -len(indexes) * bits % 8
    return (value << filling).to_bytes((len(indexes) * bits + filling) // 8, 'big')


def make_bitmaps():
    image = sample('RGB')
    few = [(0, 0, 0), (255, 0, 0), (0, 255, 0), (0, 0, 255), (255, 255, 255)]
    drawn = Image.new('RGB', (WIDTH, HEIGHT))
    drawn.putdata([few[(x + 2 * y) % 5] for y in range(HEIGHT) for x in range(WIDTH)])
    two = Image.new('RGB', (WIDTH, HEIGHT))
    two.putdata([few[1 + (x * y % 3 == 1)] for y in range(HEIGHT) for x in range(WIDTH)])

    def rgb(row, size=3):
        return b''.join(bytes([c[2], c[1], c[0]]) + b'\0' * (size - 3) for c in row)

    def words(row, green):
        return b''.join(struct.pack('<H', (c[0] >> 3) << (5 + green) | (c[1] >> (8 - green)) << 5 | c[2] >> 3)
                        for c in row)

    indexes = [few.index(color) for color in drawn.getdata()]
    encoded8 = b''.join(bytes([1, index]) for index in indexes[:0])
    for y in range(HEIGHT - 1, -1, -1):
        row = indexes[y * WIDTH:(y + 1) * WIDTH]
        encoded8 += bytes([0, WIDTH]) + bytes(row) + b'\0' * (WIDTH % 2) + b'\0\0'
    encoded8 += b'\0\1'
    encoded4 = b''
    for y in range(HEIGHT - 1, -1, -1):
        row = indexes[y * WIDTH:(y + 1) * WIDTH]
        encoded4 += b''.join(bytes([1, index << 4]) for index in row) + b'\0\0'
    encoded4 += b'\0\1'
    files = {
        '1': (bitmap(1, rows_of(two, lambda r: packed([few.index(c) - 1 for c in r], 1)), few[1:3]), two),
        '4': (bitmap(4, rows_of(drawn, lambda r: packed([few.index(c) for c in r], 4)), few), drawn),
        '8': (bitmap(8, rows_of(drawn, lambda r: packed([few.index(c) for c in r], 8)), few), drawn),
        '8-core': (bitmap(8, rows_of(drawn, lambda r: packed([few.index(c) for c in r], 8)),
                          few + [(9, 9, 9)] * 251, core=True), drawn),
        '16': (bitmap(16, rows_of(image, lambda r: words(r, 5))), image),
        '16-masks': (bitmap(16, rows_of(drawn, lambda r: words(r, 6)), compression=3,
                            masks=struct.pack('<III', 0xF800, 0x7E0, 0x1F)), drawn),
        '24': (bitmap(24, rows_of(image, rgb)), image),
        '24-core': (bitmap(24, rows_of(image, rgb), core=True), image),
        '24-top': (bitmap(24, rows_of(image, rgb, up=False), height=-HEIGHT), image),
        '32': (bitmap(32, rows_of(image, lambda r: rgb(r, 4))), image),
        'rle8': (bitmap(8, encoded8, few, compression=1), drawn),
        'rle4': (bitmap(4, encoded4, few, compression=2), drawn),
    }
    for name, (data, seen) in files.items():
        write(f'bmp/{name}.bmp', data)
        expect(f'bmp/{name}.bmp', seen)
        write(f'dib/{name}.dib', data[14:])
        note(f'dib/{name}.dib', seen)
    save(image, 'bmp/pillow.bmp')
    expect('bmp/pillow.bmp', image)
    convert(image, 'bmp/imagemagick.bmp')
    expect('bmp/imagemagick.bmp', image)


# GIF, JPEG, icons

def make_gifs():
    image = sample('RGB').convert('P', palette=Image.Palette.ADAPTIVE)
    seen = image.convert('RGB')
    save(image, 'gif/plain.gif', interlace=0)
    save(image, 'gif/interlaced.gif', interlace=1)
    second = Image.new('P', (WIDTH, HEIGHT))
    save(image, 'gif/animated.gif', save_all=True, append_images=[second, second], duration=100, loop=0)
    for name in ('plain', 'interlaced', 'animated'):
        expect(f'gif/{name}.gif', seen)
    clear = sample('RGBA')
    convert(clear, 'gif/transparent.gif')
    expect('gif/transparent.gif', read_by_imagemagick('gif/transparent.gif'), by_pillow)


def screen_profile():
    """Without the time at which it was made."""
    profile = bytearray(ImageCms.ImageCmsProfile(ImageCms.createProfile('sRGB')).tobytes())
    profile[24:36] = bytes(12)
    return bytes(profile)


def swapped_profile():
    """A profile in which red is the screen's blue."""
    profile = bytearray(screen_profile())
    for index in range(struct.unpack_from('>I', profile, 128)[0]):
        at = 132 + 12 * index
        if profile[at:at + 4] in (b'rXYZ', b'bXYZ'):
            profile[at:at + 1] = b'b' if profile[at:at + 1] == b'r' else b'r'
    return bytes(profile)


def make_jpegs():
    image = Image.new('RGB', (24, 16))
    image.putdata([(x * 10, y * 15, 255 - x * 10) for y in range(16) for x in range(24)])

    def make(name, source=image, turn=None, show=lambda seen: seen, **options):
        save(source, f'jpeg/{name}.jpg', quality=95, subsampling=0, **options)
        seen = Image.open(FOLDER / f'jpeg/{name}.jpg').convert('RGB')
        if turn is not None:
            seen = seen.transpose(turn)
        note(f'jpeg/{name}.jpg', seen, show(seen))

    make('plain')
    make('progressive', progressive=True)
    make('grey', image.convert('L'))
    turns = {2: Image.Transpose.FLIP_LEFT_RIGHT, 3: Image.Transpose.ROTATE_180, 4: Image.Transpose.FLIP_TOP_BOTTOM,
             5: Image.Transpose.TRANSPOSE, 6: Image.Transpose.ROTATE_270, 7: Image.Transpose.TRANSVERSE,
             8: Image.Transpose.ROTATE_90}
    for orientation in range(1, 9):
        exif = Image.Exif()
        exif[0x0112] = orientation
        make(f'turned-{orientation}', turn=turns.get(orientation), exif=exif)
    screen = ImageCms.ImageCmsProfile(io.BytesIO(screen_profile()))
    profile = swapped_profile()
    swapped = ImageCms.ImageCmsProfile(io.BytesIO(profile))
    make('profile', show=lambda seen: ImageCms.profileToProfile(seen, swapped, screen), icc_profile=profile)
    make('screen-profile', icc_profile=screen_profile())


def icon_picture(side, depth):
    image = Image.new('RGBA', (side, side))
    image.putdata([(five_bits(x * 255 // side), five_bits(y * 255 // side), depth, 255 if x >= y else 0)
                   for y in range(side) for x in range(side)])
    return image


def icon_bitmap(image, depth):
    """The rows of the colours and those of the mask."""
    side = image.width
    colors = b''
    mask = b''
    for y in range(side - 1, -1, -1):
        row = [image.getpixel((x, y)) for x in range(side)]
        pixels = b''.join(stored(color, depth) for color in row)
        colors += pixels + b'\0' * (-len(pixels) % 4)
        bits = packed([0 if color[3] else 1 for color in row], 1)
        mask += bits + b'\0' * (-len(bits) % 4)
    header = struct.pack('<IiiHHIIiiII', 40, side, 2 * side, 1, depth, 0, len(colors) + len(mask), 0, 0, 0, 0)
    return header + colors + mask


def icon(kind, pictures):
    """`pictures` are sides, depths and bytes."""
    entries, data = b'', b''
    for side, depth, content in pictures:
        words = (1, depth) if kind == 1 else (side // 2, side // 3)
        entries += struct.pack('<BBBBHHII', side % 256, side % 256, 0, 0, *words, len(content),
                               6 + 16 * len(pictures) + len(data))
        data += content
    return struct.pack('<HHH', 0, kind, len(pictures)) + entries + data


def make_icons():
    small, large = icon_picture(4, 24), icon_picture(8, 32)
    plain = icon_picture(8, 24)
    listed = [(4, 24, icon_bitmap(small, 24)), (8, 24, icon_bitmap(plain, 24)), (8, 32, icon_bitmap(large, 32))]
    write('ico/several.ico', icon(1, listed))
    expect('ico/several.ico', large, lambda _: large)
    write('ico/single.ico', icon(1, listed[:1]))
    expect('ico/single.ico', small)
    png = io.BytesIO()
    large.save(png, 'png', optimize=True)
    write('ico/png.ico', icon(1, [listed[0], (8, 32, png.getvalue())]))
    expect('ico/png.ico', large, by_pillow)
    write('cur/several.cur', icon(2, [listed[0], listed[2]]))
    expect('cur/several.cur', large, lambda _: large)
    write('cur/single.cur', icon(2, listed[:1]))
    expect('cur/single.cur', small)


# Metafiles

def record(function, *words, data=b''):
    content = b''.join(struct.pack('<h' if word < 0 else '<H', word) for word in words) + data
    content += b'\0' * (len(content) % 2)
    return struct.pack('<IH', 3 + len(content) // 2, function) + content


def color(red, green, blue):
    return red | green << 8, blue


def metafile(records, bounds=None, units=96):
    """Placed at `bounds`, left, top, right and bottom, where there are any."""
    records = [*records, struct.pack('<IH', 3, 0)]
    size = 9 + sum(len(one) for one in records) // 2
    header = struct.pack('<HHHIHIH', 1, 9, 0x300, size, 16, max(len(one) for one in records) // 2, 0)
    placing = b''
    if bounds:
        words = struct.unpack('<10H', struct.pack('<IHhhhhHI', 0x9AC6CDD7, 0, *bounds, units, 0))
        check = 0
        for word in words:
            check ^= word
        placing = struct.pack('<11H', *words, check)
    return placing + header + b''.join(records)


def chart():
    """Bars with outlines, a bitmap and clipping: nothing slanted, so that it is clear which pixels they are."""
    bar = Image.new('RGB', (4, 2))
    bar.putdata([(255, 0, 0), (0, 255, 0), (0, 0, 255), (255, 255, 0), (0, 0, 0), (255, 0, 255), (0, 255, 255),
                 (128, 128, 128)])
    rows = b''.join(bytes(bar.getpixel((x, y))[::-1]) for y in (1, 0) for x in range(4))
    bits = struct.pack('<IiiHHIIiiII', 40, 4, 2, 1, 24, 0, len(rows), 0, 0, 0, 0) + rows
    return [
        record(0x020B, 0, 0),                        # the window's origin
        record(0x020C, 40, 60),                      # and its size
        record(0x02FA, 5, 0, 0, 0, 0),               # 0: no pen
        record(0x02FC, 0, *color(255, 0, 0), 0),     # 1: a red brush
        record(0x02FC, 0, *color(0, 0, 255), 0),     # 2: a blue one
        record(0x02FA, 0, 1, 0, *color(0, 128, 0)),  # 3: a green pen
        record(0x012D, 0),
        record(0x012D, 1),
        record(0x041B, 12, 22, 2, 2),                # a bar from 2, 2 to 22, 12
        record(0x012D, 2),
        record(0x0324, 4, 2, 15, 22, 15, 22, 25, 2, 25),
        record(0x012D, 3),
        record(0x041B, 13, 41, 2, 26),               # one with a line inside
        record(0x0214, 20, 26),                      # a line from 26, 20
        record(0x0213, 20, 41),
        record(0x001E),
        record(0x0416, 36, 40, 30, 4),               # clipped
        record(0x061D, 0x21, 0xF0, 40, 60, 0, 0),    # filled by the brush
        record(0x0127, -1),
        record(0x0F43, 0x20, 0xCC, 0, 2, 4, 0, 0, 2, 4, 15, 45, data=bits),
    ], bar


def chart_seen(bar):
    image = Image.new('RGB', (60, 40), 'white')
    draw = ImageDraw.Draw(image)
    draw.rectangle((2, 2, 21, 11), fill=(255, 0, 0))
    draw.rectangle((2, 15, 21, 24), fill=(0, 0, 255))
    draw.rectangle((26, 2, 40, 12), fill=(0, 0, 255), outline=(0, 128, 0))
    draw.line((26, 20, 41, 20), fill=(0, 128, 0))
    draw.rectangle((4, 30, 39, 35), fill=(0, 0, 255))
    image.paste(bar, (45, 15))
    return image


def shapes():
    """What is round or slanted, which each program smooths in its way."""
    return [
        record(0x020B, 0, 0),
        record(0x020C, 800, 1200),
        record(0x02FA, 0, 20, 0, *color(0, 0, 128)),
        record(0x02FC, 0, *color(255, 200, 0), 0),
        record(0x012D, 0),
        record(0x012D, 1),
        record(0x0418, 380, 380, 20, 20),
        record(0x061C, 100, 100, 380, 780, 20, 420),
        record(0x081A, 30, 1000, 200, 1180, 380, 1180, 20, 820),
        record(0x0538, 2, 3, 4, 20, 780, 200, 420, 380, 780, 420, 420, 780, 420, 780, 780, 420, 780),
        record(0x0830, 780, 1180, 420, 820, 780, 1180, 420, 820),
        record(0x0817, 600, 820, 600, 1180, 700, 1100, 500, 900),
        record(0x0325, 3, 500, 500, 600, 700, 700, 500),
    ]


def make_metafiles():
    records, bar = chart()
    seen = chart_seen(bar)
    write('wmf/chart.wmf', metafile(records, (0, 0, 60, 40)))
    write('wmf/chart-plain.wmf', metafile(records))
    for name in ('chart', 'chart-plain'):
        note(f'wmf/{name}.wmf', seen)
    write('wmf/shapes.wmf', metafile(shapes(), (0, 0, 1200, 800), 960))
    note('wmf/shapes.wmf', read_by_imagemagick('wmf/shapes.wmf', '-density', '96'))


if __name__ == '__main__':
    make_targas()
    make_bitmaps()
    make_gifs()
    make_jpegs()
    make_icons()
    make_metafiles()
    (FOLDER / 'pictures.txt').write_text('\n'.join(NOTES) + '\n')
