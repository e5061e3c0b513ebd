// Pictures on pages. A raster file is read once and written once as an image object, however often
// it is drawn; a vector file (EPS, AI, WMF) is drawn as operators.
//
// The kind of a file goes by its extension in any case: PNG, JPG, JPEG, BMP, GIF, TGA; EPS, AI,
// WMF. What a file's own transparency can say as a range of colours is kept; partial transparency
// is not.
#pragma once

#include <cstdint>
#include <map>
#include <string>
#include <string_view>
#include <vector>

#include "pdf/document.h"
#include "pdf/images/picture.h"
#include "pdf/images/vector.h"

namespace lm::pdf {

class Graphics;

class Images {
 public:
  Images(Document& document, Graphics& graphics) : document_(document), graphics_(graphics) {}

  // maskColour: blue x 65536 + green x 256 + red of the colour that shall be transparent; 0 or
  // below leaves it to the file. Only the low 24 bits are the colour, so 16777216 stands for
  // black. A colour that cannot occur in the picture masks nothing. The mask of a colour replaces
  // the file's own.
  //
  // Returns the resource name, with the document's prefix. Throws Error: 53 for a missing file, 5
  // for a vector file, an unsupported or a damaged one.
  std::string AddImage(std::string_view file, std::int32_t maskColour = -1);

  // Tiles of width x height user units, each holding the picture; a size that is not above 0 is
  // filled as in DrawImage.
  void AddImagePattern(std::string_view name, std::string_view file, double width, double height);

  // The picture in the box whose top left corner is x, y (user units); the cursor moves there.
  // `file` may also be a name that AddImage returned. A width or height that is not above 0 is
  // filled in from the other one and the picture's ratio; both, from the pixels at 72 to the inch
  // (a vector file: its own size). The picture fills the box in every mode. transparency: percent,
  // 0 opaque, 100 invisible; a PDF/A file takes 0 only. Errors as AddImage.
  void DrawImage(std::string_view file, double x, double y, double width = 0, double height = 0,
                 int mode = 0, std::int32_t maskColour = -1, double transparency = 0);

 private:
  struct Record {
    std::string key;  // upper-case path
    std::int32_t maskColour = -1;
    int width = 0, height = 0;  // pixels
    int object = 0;
    std::string resource;  // "IMG_1", without the document's prefix
  };

  const Record* Named(std::string_view name) const;
  const Record& Load(std::string_view file, std::int32_t maskColour);
  const VectorPicture& LoadVector(std::string_view file);
  int WriteObject(std::string_view resource, const Picture& picture);

  Document& document_;
  Graphics& graphics_;
  std::vector<Record> records_;
  std::map<std::string, VectorPicture, std::less<>> vectors_;  // by upper-case path
};

}  // namespace lm::pdf
