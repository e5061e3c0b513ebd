// What goes wrong while a PDF is written or read. Parts throw it; the public operations of
// clsPDFCreator trap it and keep it for the caller.
#pragma once

#include <stdexcept>
#include <string>

namespace lm::pdf {

class Error : public std::runtime_error {
 public:
  explicit Error(const std::string& description, int number = 5)
      : std::runtime_error(description), number_(number) {}
  int Number() const { return number_; }  // 53 file not found, 75 file cannot be written, 5 other

 private:
  int number_;
};

}  // namespace lm::pdf
