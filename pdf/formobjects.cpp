#include "pdf/formobjects.h"

#include <algorithm>

#include "pdf/notation.h"

namespace lm::pdf {
namespace {

constexpr int kFirstPage = 1;
constexpr int kEvenPages = 2;
constexpr int kOddPages = 4;
constexpr int kAllPages = 7;
constexpr int kAtEnd = 16;

bool IsForPage(int flag, std::size_t page) {
  const int wanted = flag & kAllPages;
  return (wanted & kFirstPage && page == 1) || (wanted & (page % 2 ? kOddPages : kEvenPages));
}

std::string DrawOperator(const std::string& resource) { return "q " + resource + " Do Q\n"; }

// What the writer's own resources of this kind begin with, and what parts a user's from them.
constexpr std::string_view kOwnNames[] = {"IMG_", "PDF_", "PH_"};
constexpr std::string_view kUsersName = "OBJ_";

// Named as the user did, unless the writer could come to call something else so.
std::string ResourceOf(std::string_view name) {
  const std::string escaped = EscapedName(name);
  const auto begins = [&](std::string_view start) { return escaped.starts_with(start); };
  const bool meets = begins(kUsersName) || std::ranges::any_of(kOwnNames, begins);
  return meets ? std::string(kUsersName) + escaped : escaped;
}

std::string Placeholder(const std::string& name) { return "##" + name + "## "; }

}  // namespace

void FormObjects::Begin(std::string_view name, int flag) {
  if (!document_.out.IsOpen()) throw Error("No document is open");
  const std::string resource = document_.Name(ResourceOf(name));
  if (document_.resources.Has(ResourceKind::XObject, resource)) {
    throw Error("There is an object \"" + std::string(name) + "\" already.");
  }
  open_ = FormObject();
  open_.name = name;
  open_.resource = resource;
  open_.flag = flag;
  open_.box = "[0 0 " + document_.Points(document_.pageWidth) + " " +
              document_.Points(document_.pageHeight) + "]";
  document_.objectBuffer.clear();
}

void FormObjects::End() {
  open_.number = document_.out.ReserveObject();
  open_.body = std::move(document_.objectBuffer);
  document_.objectBuffer.clear();
  document_.resources.Add(ResourceKind::XObject, open_.resource, open_.number);
  byName_[open_.name] = objects_.size();
  waiting_.push_back(objects_.size());
  objects_.push_back(std::move(open_));
  open_ = FormObject();
  WriteReady();
}

void FormObjects::Draw(std::string_view name) {
  if (document_.target == Target::Object) {
    open_.references.push_back({document_.objectBuffer.size(), std::string(name)});
    document_.Draw(Placeholder(open_.references.back().name));
    return;
  }
  const FormObject* object = Find(name);
  if (!object) throw Error("There is no object \"" + std::string(name) + "\".");
  document_.Draw(DrawOperator(object->resource));
}

void FormObjects::DrawOnPage(bool atEnd) {
  if (objects_.empty()) return;
  const auto position =
      std::find(document_.order.rbegin(), document_.order.rend(), document_.openPage);
  const auto page = static_cast<std::size_t>(document_.order.rend() - position);
  for (const FormObject& object : objects_) {
    if (IsForPage(object.flag, page) && ((object.flag & kAtEnd) != 0) == atEnd) {
      document_.Draw(DrawOperator(object.resource));
    }
  }
}

void FormObjects::WriteAtEnd() {
  for (const std::size_t index : waiting_) Write(objects_[index]);
  waiting_.clear();
}

const FormObjects::FormObject* FormObjects::Find(std::string_view name) const {
  const auto found = byName_.find(std::string(name));
  return found == byName_.end() ? nullptr : &objects_[found->second];
}

bool FormObjects::IsWritten(const Reference& reference) const {
  const FormObject* object = Find(reference.name);
  return object && object->written;
}

// An object is written only after all that it shows, so none can come to contain itself.
void FormObjects::WriteReady() {
  for (bool again = true; again;) {
    again = false;
    std::erase_if(waiting_, [&](std::size_t index) {
      FormObject& object = objects_[index];
      for (const Reference& reference : object.references) {
        if (!IsWritten(reference)) return false;
      }
      Write(object);
      return again = true;
    });
  }
}

void FormObjects::Write(FormObject& object) {
  std::string body;
  std::size_t at = 0;
  for (const Reference& reference : object.references) {
    body.append(object.body, at, reference.offset - at);
    if (IsWritten(reference)) body += DrawOperator(Find(reference.name)->resource);
    at = reference.offset + Placeholder(reference.name).size();
  }
  body.append(object.body, at);

  document_.out.BeginObject(object.number);
  document_.out.WriteStream(StreamClass::Contents,
                            "<< /Type /XObject /Subtype /Form /FormType 1 /Name " +
                                object.resource + " /BBox " + object.box +
                                " /Matrix [1 0 0 1 0 0] /Resources " +
                                document_.resources.UsedBy(body) + " ",
                            body);
  document_.out.EndObject();
  object.body.clear();
  object.written = true;
}

}  // namespace lm::pdf
