#include "tools/zorvex/images/PngFile.h"

#include <png.h>

#include <algorithm>
#include <array>
#include <csetjmp>
#include <cstring>
#include <string>

#include "zorvex/base/Error.h"
#include "zorvex/state/Palette.h"

namespace zorvex::tool {

namespace {

constexpr std::int32_t invalidCall = 5;
constexpr std::int32_t invalidFormat = 321;
constexpr png_uint_32 largestSide = 4096;

// The image library leaves a failing call by a long jump, over no object with a destructor: the functions
// that set the mark hold plain values only, and what they fill belongs to their callers.

void KeepError(png_structp png, png_const_charp text) {
    try {
        *static_cast<std::string*>(png_get_error_ptr(png)) = text;
    } catch (...) {  // the failure is told without its text
    }
    png_longjmp(png, 1);
}

void IgnoreWarning(png_structp, png_const_charp) {}

// --- Writing ---
void AppendBytes(png_structp png, png_bytep data, std::size_t size) {
    bool appended = true;
    try {
        auto& bytes = *static_cast<ByteArray*>(png_get_io_ptr(png));
        bytes.insert(bytes.end(), data, data + size);
    } catch (...) {
        appended = false;
    }
    if (!appended) png_error(png, "out of memory");
}

void NoFlush(png_structp) {}

/// The palette in the two forms that a file has it in.
struct PaletteChunks {
    std::array<png_color, PNG_MAX_PALETTE_LENGTH> colors;
    std::array<png_byte, PNG_MAX_PALETTE_LENGTH> alphas;
    int colorCount;
    int alphaCount;  // up to the last that is not opaque
};

PaletteChunks ChunksOf(const std::vector<PngColor>& palette) {
    PaletteChunks chunks{};
    for (const PngColor& color : palette) {
        const auto i = static_cast<std::size_t>(chunks.colorCount++);
        chunks.colors[i] = {color.Red, color.Green, color.Blue};
        chunks.alphas[i] = color.Alpha;
        if (color.Alpha != 255) chunks.alphaCount = chunks.colorCount;
    }
    return chunks;
}

struct Writer {
    std::string Failure;
    ByteArray Bytes;
    png_structp Png = png_create_write_struct(PNG_LIBPNG_VER_STRING, &Failure, KeepError, IgnoreWarning);
    png_infop Info = Png == nullptr ? nullptr : png_create_info_struct(Png);
    PaletteChunks Palette{};

    Writer() = default;
    Writer(const Writer&) = delete;
    Writer& operator=(const Writer&) = delete;
    ~Writer() { png_destroy_write_struct(&Png, &Info); }

    bool Write(const IndexedImage& image) {
        if (Info == nullptr) return false;
        if (setjmp(png_jmpbuf(Png)) != 0) return false;
        png_set_write_fn(Png, &Bytes, AppendBytes, NoFlush);
        png_set_IHDR(Png, Info, static_cast<png_uint_32>(image.Width), static_cast<png_uint_32>(image.Height),
                     8, PNG_COLOR_TYPE_PALETTE, PNG_INTERLACE_NONE, PNG_COMPRESSION_TYPE_DEFAULT,
                     PNG_FILTER_TYPE_DEFAULT);
        png_set_PLTE(Png, Info, Palette.colors.data(), Palette.colorCount);
        if (Palette.alphaCount > 0)
            png_set_tRNS(Png, Info, Palette.alphas.data(), Palette.alphaCount, nullptr);
        png_write_info(Png, Info);
        for (std::size_t row = 0; row < image.Height; ++row)
            png_write_row(Png, image.Pixels.data() + row * image.Width);
        png_write_end(Png, Info);
        return true;
    }
};

// --- Reading ---
void TakeBytes(png_structp png, png_bytep data, std::size_t size) {
    auto& rest = *static_cast<ByteView*>(png_get_io_ptr(png));
    if (size > rest.size()) png_error(png, "the file ends too soon");
    std::memcpy(data, rest.data(), size);
    rest = rest.subspan(size);
}

struct Reader {
    std::string Failure;
    ByteView Rest;
    png_structp Png = png_create_read_struct(PNG_LIBPNG_VER_STRING, &Failure, KeepError, IgnoreWarning);
    png_infop Info = Png == nullptr ? nullptr : png_create_info_struct(Png);
    ByteArray Samples;
    std::vector<png_bytep> Rows;

    explicit Reader(ByteView bytes) : Rest(bytes) {}
    Reader(const Reader&) = delete;
    Reader& operator=(const Reader&) = delete;
    ~Reader() { png_destroy_read_struct(&Png, &Info, nullptr); }

    bool ReadHeader() {
        if (Info == nullptr) return false;
        if (setjmp(png_jmpbuf(Png)) != 0) return false;
        png_set_read_fn(Png, &Rest, TakeBytes);
        png_set_user_limits(Png, largestSide, largestSide);
        png_read_info(Png, Info);
        png_set_packing(Png);
        if (!Indexed()) {  // red, green, blue and alpha of 8 bits each, whatever the file has
            png_set_expand(Png);
            png_set_strip_16(Png);
            png_set_gray_to_rgb(Png);
            png_set_add_alpha(Png, 255, PNG_FILLER_AFTER);
        }
        png_set_interlace_handling(Png);
        png_read_update_info(Png, Info);
        return true;
    }

    bool ReadRows() {
        if (setjmp(png_jmpbuf(Png)) != 0) return false;
        png_read_image(Png, Rows.data());
        png_read_end(Png, nullptr);
        return true;
    }

    bool Indexed() const { return png_get_color_type(Png, Info) == PNG_COLOR_TYPE_PALETTE; }
    std::size_t Width() const { return png_get_image_width(Png, Info); }
    std::size_t Height() const { return png_get_image_height(Png, Info); }

    void MakeRows() {
        const std::size_t rowBytes = png_get_rowbytes(Png, Info);
        Samples.resize(rowBytes * Height());
        for (std::size_t row = 0; row < Height(); ++row)
            Rows.push_back(Samples.data() + row * rowBytes);
    }

    std::vector<PngColor> Palette() {
        std::vector<PngColor> palette;
        png_colorp colors = nullptr;
        png_bytep alphas = nullptr;
        int colorCount = 0;
        int alphaCount = 0;
        png_get_PLTE(Png, Info, &colors, &colorCount);
        png_get_tRNS(Png, Info, &alphas, &alphaCount, nullptr);
        for (int i = 0; i < colorCount; ++i) {
            const png_byte alpha = i < alphaCount ? alphas[i] : png_byte{255};
            palette.push_back({colors[i].red, colors[i].green, colors[i].blue, alpha});
        }
        return palette;
    }
};

[[noreturn]] void RaiseBadImage(const std::string& failure) {
    RaiseText(invalidFormat, "zorvex", "Not a PNG image that can be read: " + failure);
}

/// Colours of an indexed image; an index past the palette is black.
void LookUpColors(ReadImage& image) {
    image.Colors.reserve(image.Pixels.size());
    for (const std::uint8_t pixel : image.Pixels)
        image.Colors.push_back(pixel < image.Palette.size() ? image.Palette[pixel] : PngColor{});
}

}  // namespace

void IndexedImage::Place(ByteView pixels, std::size_t width, std::size_t left, std::size_t top,
                         std::size_t across, std::size_t down) {
    for (std::size_t i = 0; i < pixels.size(); ++i) {
        const std::size_t x = left + i % width * across;
        const std::size_t y = top + i / width * down;
        for (std::size_t row = 0; row < down; ++row)
            std::fill_n(Pixels.begin() + static_cast<std::ptrdiff_t>((y + row) * Width + x), across,
                        pixels[i]);
    }
}

ByteArray EncodePng(const IndexedImage& image) {
    const bool sound = image.Width > 0 && image.Height > 0 &&
                       image.Pixels.size() == image.Width * image.Height && !image.Palette.empty() &&
                       image.Palette.size() <= PNG_MAX_PALETTE_LENGTH;
    if (!sound) RaiseText(invalidCall, "zorvex", "Not an image that a PNG file can hold");
    Writer writer;
    writer.Palette = ChunksOf(image.Palette);
    if (!writer.Write(image)) RaiseText(invalidCall, "zorvex", "Cannot make a PNG image: " + writer.Failure);
    return std::move(writer.Bytes);
}

ReadImage DecodePng(ByteView bytes) {
    Reader reader(bytes);
    if (!reader.ReadHeader()) RaiseBadImage(reader.Failure);
    reader.MakeRows();
    if (!reader.ReadRows()) RaiseBadImage(reader.Failure);
    ReadImage image;
    image.Width = reader.Width();
    image.Height = reader.Height();
    image.Indexed = reader.Indexed();
    if (image.Indexed) {
        image.Palette = reader.Palette();
        image.Pixels = std::move(reader.Samples);
        LookUpColors(image);
        return image;
    }
    for (std::size_t i = 0; i + 3 < reader.Samples.size(); i += 4) {
        image.Colors.push_back(
            {reader.Samples[i], reader.Samples[i + 1], reader.Samples[i + 2], reader.Samples[i + 3]});
    }
    return image;
}

std::vector<PngColor> GamePalette() {
    std::vector<PngColor> palette;
    for (const BitmapColor& color : PresentPalette())
        palette.push_back({color.Red, color.Green, color.Blue});
    return palette;
}

}  // namespace zorvex::tool
