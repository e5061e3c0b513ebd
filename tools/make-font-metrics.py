#!/usr/bin/env python3
"""Writes pdf/data/*.cpp: the widths of the base fonts, and the code pages with their glyph names.

Usage: make-font-metrics.py [LIBERATION_DIRECTORY [URW_DIRECTORY]]

Base fonts are not embedded, so what is measured must be what a viewer draws. The widths are read
from freely licensed fonts that were made with the same metrics:
  Arial, Times New Roman    Liberation Sans and Serif 2 (Debian: fonts-liberation2; SIL OFL 1.1)
  Symbol, ZapfDingbats      StandardSymbolsPS and D050000L (Debian: fonts-urw-base35; AGPL 3 with
                            font exception), their AFM files
The code pages are those of Python's codecs; glyph names are the ones that Liberation Sans has in
its `post` table, put into the traditional names where it writes "uniXXXX".
"""
import pathlib
import struct
import sys

LIBERATION = "/usr/share/fonts/truetype/liberation2"
URW = "/usr/share/fonts/type1/urw-base35"
OUT = pathlib.Path(__file__).resolve().parent.parent / "pdf" / "data"

# Number of the character set as Windows has it, and its code page; 0 is the standard one.
CODE_PAGES = [(0, "cp1252"), (161, "cp1253"), (162, "cp1254"), (186, "cp1257"), (204, "cp1251"),
              (238, "cp1250")]
STYLES = ["Regular", "Bold", "Italic", "BoldItalic"]

# The 258 names that `post` refers to by number and does not spell out.
MACINTOSH = (".notdef .null nonmarkingreturn space exclam quotedbl numbersign dollar percent "
             "ampersand quotesingle parenleft parenright asterisk plus comma hyphen period slash "
             "zero one two three four five six seven eight nine colon semicolon less equal "
             "greater question at A B C D E F G H I J K L M N O P Q R S T U V W X Y Z "
             "bracketleft backslash bracketright asciicircum underscore grave a b c d e f g h i "
             "j k l m n o p q r s t u v w x y z braceleft bar braceright asciitilde Adieresis "
             "Aring Ccedilla Eacute Ntilde Odieresis Udieresis aacute agrave acircumflex "
             "adieresis atilde aring ccedilla eacute egrave ecircumflex edieresis iacute igrave "
             "icircumflex idieresis ntilde oacute ograve ocircumflex odieresis otilde uacute "
             "ugrave ucircumflex udieresis dagger degree cent sterling section bullet paragraph "
             "germandbls registered copyright trademark acute dieresis notequal AE Oslash "
             "infinity plusminus lessequal greaterequal yen mu partialdiff summation product pi "
             "integral ordfeminine ordmasculine Omega ae oslash questiondown exclamdown "
             "logicalnot radical florin approxequal Delta guillemotleft guillemotright ellipsis "
             "nonbreakingspace Agrave Atilde Otilde OE oe endash emdash quotedblleft "
             "quotedblright quoteleft quoteright divide lozenge ydieresis Ydieresis fraction "
             "currency guilsinglleft guilsinglright fi fl daggerdbl periodcentered "
             "quotesinglbase quotedblbase perthousand Acircumflex Ecircumflex Aacute Edieresis "
             "Egrave Iacute Icircumflex Idieresis Igrave Oacute Ocircumflex apple Ograve Uacute "
             "Ucircumflex Ugrave dotlessi circumflex tilde macron breve dotaccent ring cedilla "
             "hungarumlaut ogonek caron Lslash lslash Scaron scaron Zcaron zcaron brokenbar Eth "
             "eth Yacute yacute Thorn thorn minus multiply onesuperior twosuperior threesuperior "
             "onehalf onequarter threequarters franc Gbreve gbreve Idotaccent Scedilla scedilla "
             "Cacute cacute Ccaron ccaron dcroat").split()

TRADITIONAL = {0x00A0: "space", 0x00AD: "hyphen", 0x0394: "Delta", 0x03A9: "Omega", 0x03BC: "mu",
               0x2015: "afii00208", 0x2116: "afii61352", 0x040F: "afii10145",
               0x045F: "afii10193", 0x0490: "afii10050", 0x0491: "afii10098",
               0x0401: "afii10023", 0x0451: "afii10071"}
TRADITIONAL |= {0x0410 + i: f"afii{10017 + i + (i > 5)}" for i in range(32)}
TRADITIONAL |= {0x0430 + i: f"afii{10065 + i + (i > 5)}" for i in range(32)}
TRADITIONAL |= {0x0402 + i: f"afii{10051 + i}" for i in range(11)}
TRADITIONAL |= {0x0452 + i: f"afii{10099 + i}" for i in range(11)}
TRADITIONAL |= {0x040E: "afii10062", 0x045E: "afii10110"}


class TrueType:
    def __init__(self, path):
        data = path.read_bytes()
        count = struct.unpack_from(">H", data, 4)[0]
        self.tables = {}
        for i in range(count):
            tag, _, offset, length = struct.unpack_from(">4sLLL", data, 12 + 16 * i)
            self.tables[tag.decode()] = data[offset:offset + length]
        self.units = self.u16("head", 18)
        self.glyphs = self.read_cmap()
        self.advances = [self.u16("hmtx", 4 * i) for i in range(self.u16("hhea", 34))]

    def u16(self, table, offset):
        return struct.unpack_from(">H", self.tables[table], offset)[0]

    def read_cmap(self):
        """Unicode to glyph, from the Windows Unicode subtable of format 4."""
        cmap = self.tables["cmap"]
        for i in range(self.u16("cmap", 2)):
            platform, encoding, offset = struct.unpack_from(">HHL", cmap, 4 + 8 * i)
            if (platform, encoding) == (3, 1):
                break
        segments = self.u16("cmap", offset + 6) // 2
        column = [struct.unpack_from(f">{segments}H", cmap, offset + at)
                  for at in (14, 16 + 2 * segments, 16 + 4 * segments, 16 + 6 * segments)]
        glyphs = {}
        for i, (end, start, delta, shift) in enumerate(zip(*column)):
            for code in range(start, end + 1):
                glyph = code
                if shift:
                    at = offset + 16 + 6 * segments + 2 * i + shift + 2 * (code - start)
                    glyph = self.u16("cmap", at) if at + 2 <= len(cmap) else 0
                    if glyph == 0:
                        continue
                glyphs[code] = (glyph + delta) % 65536
        return glyphs

    def width(self, character):
        """Thousandths; a character that is not there shows as the glyph for a missing one."""
        glyph = self.glyphs.get(character, 0) if character is not None else 0
        advance = self.advances[min(glyph, len(self.advances) - 1)]
        return int(advance * 1000 / self.units + 0.5)

    def glyph_name(self, character):
        post = self.tables["post"]
        count = struct.unpack_from(">H", post, 32)[0]
        spelled, at = [], 34 + 2 * count
        while at < len(post):
            spelled.append(post[at + 1:at + 1 + post[at]].decode("latin1"))
            at += 1 + post[at]
        index = struct.unpack_from(">H", post, 34 + 2 * self.glyphs[character])[0]
        return MACINTOSH[index] if index < 258 else spelled[index - 258]


def unicode_of(codec, code):
    try:
        return ord(bytes([code]).decode(codec))
    except UnicodeDecodeError:
        return None


def differences(names_of, number, codec):
    """The /Differences array: a code stands wherever the names do not follow on."""
    text, expected = "[", None
    for code in range(128, 256):
        character = unicode_of(codec, code)
        if character is None:
            continue
        name = TRADITIONAL.get(character) or names_of.glyph_name(character)
        assert not name.startswith("uni"), name
        if code != expected:
            text += f"{'' if text == '[' else ' '}{code}"
        # The authors' doubled blanks; a reader ignores them.
        doubled = number == 162 and name in ("guillemotright", "Aring")
        text += ("  /" if doubled else " /") + name
        expected = code + 1
    return text + "]"


def rows(numbers, form, indent, per_line):
    lines = [numbers[i:i + per_line] for i in range(0, len(numbers), per_line)]
    return "\n".join(indent + ", ".join(form(n) for n in line) + "," for line in lines)


def write(name, source, body):
    head = f"// Generated by tools/make-font-metrics.py. Do not edit.\n{source}"
    path = OUT / name
    path.write_text(f"{head}\n#include \"pdf/data/fontdata.h\"\n\n"
                    f"namespace lm::pdf {{\n\n// clang-format off\n{body}\n"
                    f"// clang-format on\n\n}}  // namespace lm::pdf\n")


def write_family(file, constant, prefix, directory, typeface, serial):
    body = f"const FamilyWidths {constant} = {{{{\n"
    for style in STYLES:
        font = TrueType(directory / f"{prefix}-{style}.ttf")
        body += "    {{\n"
        for number, codec in CODE_PAGES:
            widths = [font.width(unicode_of(codec, code)) for code in range(256)]
            body += (f"        {{{{  // {style}, {number}\n"
                     + rows(widths, str, " " * 12, 16) + "\n        }},\n")
        body += "    }},\n"
    write(file, f"// Widths of {typeface}, read from {serial}, a font of the same metrics:\n"
          "// copyright 2010 Google Corporation, 2012 Red Hat, Inc.; SIL Open Font License 1.1.",
          body + "}};")


def afm(path):
    box, widths, missing = None, {}, 0
    for line in path.read_text().splitlines():
        words = line.split()
        if words[:1] == ["FontBBox"]:
            box = [int(word) for word in words[1:]]
        elif words[:1] == ["C"]:
            if words[7] == ".notdef":
                missing = int(words[4])
            widths[int(words[1])] = int(words[4])
    return box, [widths.get(code, missing) for code in range(256)]


def write_symbols(directory):
    body = ""
    for constant, file in (("kSymbol", "StandardSymbolsPS"), ("kZapfDingbats", "D050000L")):
        box, widths = afm(directory / f"{file}.afm")
        body += (f"const SymbolFont {constant} = {{\n    {box[3] - box[1]}, {box[1]}, {{{{\n"
                 + rows(widths, str, " " * 8, 16) + "\n    }}};\n\n")
    write("symbols.cpp",
          "// Widths and boxes of Symbol and ZapfDingbats, read from the AFM files of\n"
          "// StandardSymbolsPS and D050000L, fonts of the same metrics: copyright 2013 to 2015\n"
          "// (URW)++ Design & Development; AGPL 3 with font exception.", body.rstrip())


def write_code_pages(directory):
    names_of = TrueType(directory / "LiberationSans-Regular.ttf")
    body = "const std::array<CodePage, kCodePageCount> kCodePages = {{\n"
    for number, codec in CODE_PAGES:
        upper = [unicode_of(codec, code) or 0 for code in range(128, 256)]
        body += (f"    {{{number}, {{{{  // Windows-{codec[2:]}\n"
                 + rows(upper, lambda n: f"0x{n:04X}", " " * 8, 8) + "\n    }},\n")
        words, line = differences(names_of, number, codec).split(" /"), ""
        lines = []
        for i, word in enumerate(words):
            piece = word if i == 0 else " /" + word
            if len(line) + len(piece) > 84:
                lines.append(line)
                line = ""
            line += piece
        lines.append(line)
        body += "\n".join(f'     "{line}"' for line in lines) + "},\n"
    write("codepages.cpp",
          "// The Windows code pages from code 128 upwards, 0 where a code has no character, and\n"
          "// the same characters by glyph name. Names after the `post` table of Liberation Sans\n"
          "// 2: SIL Open Font License 1.1.", body + "}};")


def main():
    liberation = pathlib.Path(sys.argv[1] if len(sys.argv) > 1 else LIBERATION)
    urw = pathlib.Path(sys.argv[2] if len(sys.argv) > 2 else URW)
    OUT.mkdir(parents=True, exist_ok=True)
    write_family("arial.cpp", "kArial", "LiberationSans", liberation, "Arial",
                 "Liberation Sans 2")
    write_family("timesnewroman.cpp", "kTimesNewRoman", "LiberationSerif", liberation,
                 "Times New Roman", "Liberation Serif 2")
    write_symbols(urw)
    write_code_pages(liberation)


if __name__ == "__main__":
    main()
