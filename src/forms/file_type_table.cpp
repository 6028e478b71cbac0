#include "forms/file_type_table.h"

#include <algorithm>

namespace lumidex {

const std::array<FileTypeRow, FileTypeCount> FileTypeTable = {{
    {"ART", "(.ART) - PFS First Publisher", "PFS First Publisher"},
    {"BMP", "(.BMP) - Microsoft Windows and OS2 Bitmaps", "Microsoft Windows and OS2 bitmaps"},
    {"CUR", "(.CUR) Windows Cursor File Format", "Microsoft Windows Cursor files"},
    {"CUT", "(.CUT) - Dr. Halo", "Dr. Halo"},
    {"DIB", "(.DIB) - Microsoft Windows Device Independent Bitmaps ", "Device Independent Bitmaps"},
    {"EMF", "(.EMF) - Windows Meta-files", "Enhanced Meta-files"},
    {"GEM", "(.GEM) - GEM Raster files (Digital Research)", "GEM Raster files (Digital Research)"},
    {"GIF", "(.GIF) - Graphics Interchange Format", "Graphics Interchange Format"},
    {"HRZ", "(.HRZ) - Slow Scan Television", "Slow Scan Television"},
    {"ICO", "(.ICO) - Windows Icon File Format", "Microsoft Windows Icon files"},
    {"IFF", "(.IFF) - Interchange File Format (Amiga Electronic Arts Deluxe Paint)",
     "Interchange File Format (Amiga)"},
    {"IMG", "(.IMG) - GEM Raster files (Digital Research)", "GEM Raster files (Digital Research)"},
    {"JPG", "(.JPG) - Joint Photographics Experts Group", "Joint Photographics Experts Group"},
    {"LBM", "(.LBM) - Interchange File Format (Amiga Electronic Arts Deluxe Paint)",
     "Interchange File Format (Amiga)"},
    {"MAC", "(.MAC) - Maintosh Paint", "Macintosh Paint"},
    {"MSP", "(.MSP) - Microsoft Paint", "Microsoft Paint"},
    {"PBM", "(.PBM) - Portable Bitmapped Graphics", "Portable Bitmapped Graphics"},
    {"PCX", "(.PCX) - ZSoft PC Paintbrush", "ZSoft PC Paintbrush"},
    {"PGM", "(.PGM) - Portable Greymapped Graphics", "Portable Greymapped Graphics"},
    {"PIC", "(.PIC) - Pictor PC Paint", "Pictor PC Paint"},
    {"PNG", "(.PNG) - Portable Network Graphics", "Portable Network Graphics"},
    {"PNM", "(.PNM) - Portable Anymapped Graphics", "Portable Anymapped Graphics"},
    {"PPM", "(.PPM) - Portable Pixmapped Graphics", "Portable Pixmapped Graphics"},
    {"RAS", "(.RAS) - Sun Raster files", "Sun Raster files"},
    {"RLE", "(.RLE) - Run-length Encoded BMP files", "Run-length Encoded BMP files"},
    {"TGA", "(.TGA) - Targa TrueVision files", "Targa TrueVision Files"},
    {"TIF", "(.TIF) - Tagged Image File Format (PC or Mac)", "Tagged Image File Format (PC or Mac)"},
    {"WMF", "(.WMF) - Windows Meta-files", "Windows Meta-files"},
    {"WPG", "(.WPG) - Word Perfect Graphics", "Word Perfect Graphics - Bitmap WPG files only"},
}};

int FileTypeOf(std::string_view ending) {
  if (!ending.starts_with('.')) return 0;
  // Capitals and small letters differ in one bit, and the table has letters alone.
  const auto isSameLetter = [](char a, char b) { return (a | 0x20) == (b | 0x20); };
  const auto row = std::ranges::find_if(FileTypeTable, [&](const FileTypeRow& type) {
    return std::ranges::equal(type.resource, ending.substr(1), isSameLetter);
  });
  return row == FileTypeTable.end() ? 0 : static_cast<int>(row - FileTypeTable.begin()) + 1;
}

}  // namespace lumidex
