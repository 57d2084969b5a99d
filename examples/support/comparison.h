// Compares records field by field and says which field differs, and how.
#ifndef EXAMPLES_COMPARISON_H
#define EXAMPLES_COMPARISON_H

#include "support/text_fields.h"
#include "support/transcript.h"

#include <cstddef>
#include <stdexcept>
#include <string>

namespace example {

// `where` is the record, for example "group 1, view 2".
class Comparison {
  public:
    template <std::size_t Width>
    void same(const std::string& where, const char* field, const char (&wanted)[Width],
              const char (&found)[Width]) {
        compare(where, field, text(wanted), text(found));
    }

    template <class Number>
    void same(const std::string& where, const char* field, Number wanted, Number found) {
        compare(where, field, std::to_string(wanted), std::to_string(found));
    }

    // How many were compared so far.
    std::size_t fields() const { return fields_; }

  private:
    void compare(const std::string& where, const char* field, const std::string& wanted,
                 const std::string& found) {
        ++fields_;
        if (found != wanted)
            throw std::runtime_error("not as it should be: " + where + ", " + field + ": '" +
                                     printable(found) + "' instead of '" + printable(wanted) + "'");
    }

    std::size_t fields_ = 0;
};

} // namespace example

#endif
