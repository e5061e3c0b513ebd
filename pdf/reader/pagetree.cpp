#include "pdf/reader/pagetree.h"

#include <unordered_set>

#include "pdf/error.h"

namespace lm::pdf {
namespace {

constexpr int kHighestParent = 64;  // levels that a page without its tree is followed up

// What the node itself does not tell stays as it is.
void TakeAttributes(const Value& node, PageNode& page) {
  const auto take = [&node](std::string_view key, const Value*& attribute) {
    const Value& own = node.At(key);
    if (own.kind != ValueKind::Null) attribute = &own;
  };
  take("Resources", page.resources);
  take("MediaBox", page.mediaBox);
  take("CropBox", page.cropBox);
  take("Rotate", page.rotate);
}

// Walks the page tree depth-first without recursion: its depth is the file's choice.
class PageWalk {
 public:
  explicit PageWalk(Objects& objects) : objects_(objects) {}

  void Walk() {
    open_.push_back({&objects_.FileTrailer().root, PageNode(), true});
    while (!open_.empty()) {
      const Step step = open_.back();
      open_.pop_back();
      try {
        Take(step);
      } catch (const Error&) {
        complete_ = false;
      }
    }
  }

  bool IsComplete() const { return complete_ && !pages_.empty(); }
  std::vector<PageNode>& Pages() { return pages_; }

 private:
  struct Step {
    const Value* node = nullptr;
    PageNode above;
    bool isCatalog = false;
  };

  void Take(const Step& step) {
    const Value& node = objects_.Resolve(*step.node);
    if (!node.IsDictionary()) {
      complete_ = false;
    } else if (step.isCatalog) {
      open_.push_back({&node.At("Pages"), step.above});
    } else {
      TakeNode(node, step.above);
    }
  }

  void TakeNode(const Value& node, PageNode page) {
    page.dictionary = &node;
    TakeAttributes(node, page);
    const Value& type = objects_.Find(node, "Type");
    const Value& kids = node.At("Kids");
    const Value& found = objects_.Resolve(kids);
    const bool isBranch = found.kind == ValueKind::Array || found.IsDictionary();
    if (type.IsName("Page") || !isBranch) {
      // Some call a page "Pages"; but a branch that lost its kids, and draws nothing, is no page.
      const bool isLeaf = !type.IsName("Pages") || node.At("Contents").kind != ValueKind::Null;
      if (isLeaf) pages_.push_back(page);
    } else if (branches_.insert(&node).second) {
      PushKids(kids, found, page);
    }
  }

  void PushKids(const Value& kids, const Value& found, const PageNode& page) {
    if (found.IsDictionary()) {  // one that stands there without the brackets of a list
      open_.push_back({&kids, page});
      return;
    }
    for (auto kid = found.items.rbegin(); kid != found.items.rend(); ++kid) {
      open_.push_back({&*kid, page});
    }
  }

  Objects& objects_;
  std::vector<PageNode> pages_;
  std::vector<Step> open_;
  std::unordered_set<const Value*> branches_;  // each is walked once, or cycles had no end
  bool complete_ = true;
};

const Value& Parent(Objects& objects, const Value& node) {
  try {
    return objects.Find(node, "Parent");
  } catch (const Error&) {
    return kNullValue;
  }
}

PageNode WithoutTree(Objects& objects, const Value& page) {
  std::vector<const Value*> line;  // the page and those above it
  const Value* node = &page;
  for (int i = 0; i < kHighestParent && node->IsDictionary(); ++i) {
    line.push_back(node);
    node = &Parent(objects, *node);
  }
  PageNode result;
  for (auto above = line.rbegin(); above != line.rend(); ++above) TakeAttributes(**above, result);
  result.dictionary = &page;
  return result;
}

std::vector<PageNode> PagesAmongObjects(Objects& objects) {
  std::vector<PageNode> pages;
  for (const int number : objects.KnownNumbers()) {
    try {
      const Value& value = objects.Get(number).value;
      if (objects.Find(value, "Type").IsName("Page")) pages.push_back(WithoutTree(objects, value));
    } catch (const Error&) {
      continue;
    }
  }
  return pages;
}

}  // namespace

std::vector<PageNode> ReadPages(Objects& objects) {
  PageWalk walk(objects);
  walk.Walk();
  if (walk.IsComplete()) return std::move(walk.Pages());
  objects.Repair();
  PageWalk again(objects);
  again.Walk();
  return again.Pages().empty() ? PagesAmongObjects(objects) : std::move(again.Pages());
}

}  // namespace lm::pdf
