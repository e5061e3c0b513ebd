// A text that grows piece by piece: the buffer of the exporters. With a sink it hands on what it
// holds in large blocks, so that a file of any size costs the memory of one block.
#pragma once

#include <functional>
#include <string>
#include <string_view>
#include <utility>

namespace lm {

class clsStringBuilder {
 public:
  using Sink = std::function<void(std::string_view block)>;

  clsStringBuilder() = default;
  explicit clsStringBuilder(Sink sink) : sink_(std::move(sink)) { text_.reserve(2 * kBlock); }

  clsStringBuilder& Append(std::string_view text) {
    text_ += text;
    if (sink_ && text_.size() >= kBlock) Flush();
    return *this;
  }
  // What was appended; with a sink, what it was not given yet.
  const std::string& ToString() const { return text_; }
  // Gives the sink the rest.
  void Flush() {
    if (sink_) sink_(text_);
    if (sink_) text_.clear();
  }

 private:
  static constexpr std::size_t kBlock = 1 << 16;
  std::string text_;
  Sink sink_;
};

}  // namespace lm
