// Named objects: drawn once, shown on any page, by hand or by themselves.
#pragma once

#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "pdf/document.h"

namespace lm::pdf {

class FormObjects {
 public:
  explicit FormObjects(Document& document) : document_(document) {}

  // Opens an object of the page's size; the object buffer takes what is drawn.
  void Begin(std::string_view name, int flag);
  void End();
  void Draw(std::string_view name);
  // Draws the objects that the open page gets by itself, at its beginning or its end.
  void DrawOnPage(bool atEnd);
  void WriteAtEnd();  // the objects that waited for others in vain

 private:
  // One object inside another: its placeholder stands in the body until it is written.
  struct Reference {
    std::size_t offset;
    std::string name;
  };
  struct FormObject {
    std::string name;
    std::string resource;  // "/A1F3+NAME"
    std::string box;
    int flag = 0;
    int number = 0;
    std::string body;
    std::vector<Reference> references;
    bool written = false;
  };

  const FormObject* Find(std::string_view name) const;
  bool IsWritten(const Reference& reference) const;
  void WriteReady();
  void Write(FormObject& object);

  Document& document_;
  FormObject open_;
  std::vector<FormObject> objects_;  // in the order of their ends
  std::unordered_map<std::string, std::size_t> byName_;
  std::vector<std::size_t> waiting_;  // not written yet
};

}  // namespace lm::pdf
