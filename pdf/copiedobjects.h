// Objects of a file that is read, copied into the one that is written. Bytes of streams go over as
// they stand; only references get new numbers.
#pragma once

#include <string>
#include <string_view>
#include <unordered_map>
#include <unordered_set>
#include <vector>

#include "pdf/output.h"

namespace lm::pdf {

class Objects;
struct Object;
struct Value;

// Source object to output object; 0 stands for null.
using CopiedObjects = std::unordered_map<int, int>;

// Copies in two steps, so that a file that turns out to be damaged leaves nothing behind: Gather
// reads all that is needed, Write writes what has not been copied before.
class ObjectCopier {
 public:
  ObjectCopier(Objects& objects, Output& out, CopiedObjects& copied)
      : objects_(objects), out_(out), copied_(copied) {}

  // All that the value refers to, directly or not; throws Error when some of it cannot be read.
  void Gather(const Value& value);
  // The same for what the page can do without: what cannot be read becomes null.
  void GatherReadable(const Value& value);
  // A Form XObject, which calls itself one in the output even where the source has forgotten it.
  void GatherForm(const Value& reference);
  // Of what was gathered: the source objects with this /Type.
  std::vector<int> OfType(std::string_view type) const;
  void Write();

  // The value as text within the output's object `number`; after Write.
  std::string Text(const Value& value, int number) const;
  // The names of a stream's filters as Output::StreamOptions has them, "" for none.
  std::string FilterText(const Value& dictionary) const;

 private:
  bool IsWanted(int source) const;
  void GatherOne(const Value& value);
  void GatherObject(const Value& reference);
  void WriteOne(int source, const Object& object);
  void Append(const Value& value, int number, std::string& out) const;

  Objects& objects_;
  Output& out_;
  CopiedObjects& copied_;
  CopiedObjects fresh_;  // to be copied by Write
  struct Source {
    int number = 0;
    const Object* object = nullptr;
  };
  std::vector<Source> order_;
  std::size_t gathered_ = 0;  // of order_, those whose own references are gathered
  bool isLenient_ = false;    // what cannot be read is null
  std::unordered_set<int> namelessForms_;
};

}  // namespace lm::pdf
