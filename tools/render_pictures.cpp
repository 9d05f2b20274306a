// Renders the device's pictures at 100 % and the program's icon at its sizes
// into a C++ source that the program is built with (shell/pictures/built_pictures.h),
// so that the program need not render them at its start.
//
//   nautrix_render_pictures OUTPUT.cpp
#include <QGuiApplication>
#include <cstdio>
#include <string>

#include "shell/pictures/built_pictures.h"

namespace {

using nautrix::kPicCount;

// Appends the image's pixels to `pixels` and writes its row of the table.
void Add(const QImage& image, std::string& pixels, std::string& table) {
  table += "    {" + std::to_string(image.width()) + ", " + std::to_string(image.height()) + ", " +
           std::to_string(pixels.size()) + "},\n";
  for (int y = 0; y < image.height(); ++y)
    pixels.append(reinterpret_cast<const char*>(image.constScanLine(y)), image.width() * 4);
}

// The bytes as a string literal: printable characters as they are, the rest
// as three-digit octal escapes, which no following character can lengthen.
std::string Literal(const std::string& bytes) {
  std::string out = "\"";
  size_t line = 0;
  for (const unsigned char c : bytes) {
    if (c >= 0x20 && c < 0x7f && c != '"' && c != '\\' && c != '?') {
      out += static_cast<char>(c);
    } else {
      char escape[5];
      std::snprintf(escape, sizeof escape, "\\%03o", c);
      out += escape;
    }
    if (out.size() - line > 100) {
      out += "\"\n    \"";
      line = out.size();
    }
  }
  return out + "\"";
}

}  // namespace

int main(int argc, char** argv) {
  if (argc != 2) {
    std::fprintf(stderr, "usage: %s OUTPUT.cpp\n", argv[0]);
    return 2;
  }
  qputenv("QT_QPA_PLATFORM", "offscreen");
  QGuiApplication app(argc, argv);
  std::string pixels, pictures, icons;
  const nautrix::PictureBook book(1);
  pictures += "    {0, 0, 0},\n";  // Pic::None
  for (int i = 1; i < kPicCount; ++i)
    Add(book.Picture(static_cast<nautrix::Pic>(i)).convertToFormat(QImage::Format_RGB32), pixels,
        pictures);
  for (const int size : nautrix::kIconSizes) Add(nautrix::RenderIcon(size), pixels, icons);

  FILE* out = std::fopen(argv[1], "w");
  if (!out) {
    std::fprintf(stderr, "cannot write %s\n", argv[1]);
    return 1;
  }
  std::fprintf(out,
               "// Made by nautrix_render_pictures from the vector art; not to be edited.\n"
               "#include \"shell/pictures/built_pictures.h\"\n\n"
               "namespace nautrix {\n\n"
               "const BuiltImage kBuiltPictures[kPicCount] = {\n%s};\n\n"
               "const BuiltImage kBuiltIcons[std::size(kIconSizes)] = {\n%s};\n\n"
               "alignas(16) const char kBuiltPixels[] =\n    %s;\n\n"
               "}  // namespace nautrix\n",
               pictures.c_str(), icons.c_str(), Literal(pixels).c_str());
  return std::fclose(out) == 0 ? 0 : 1;
}
