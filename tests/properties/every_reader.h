// Every public function that reads, called with whatever a message holds.
#pragma once

#include <string>
#include <type_traits>

class TiXmlDocument;

// What each function made of its arguments.
class Transcript {
  public:
    template <class Result>
    void note(const char* function, const Result& result) {
        text_ += function;
        text_ += ": ";
        if constexpr (std::is_same_v<Result, std::string>)
            text_ += result;
        else if constexpr (std::is_arithmetic_v<Result>)
            text_ += std::to_string(result);
        else
            text_.append(reinterpret_cast<const char*>(&result), sizeof result); // a record
        text_ += '\n';
    }
    const std::string& text() const { return text_; }

  private:
    std::string text_;
};

// The function's name stands once, so that it cannot differ from what is called.
#define NOTE(function, ...) transcript.note(#function, function(__VA_ARGS__))

// Reads a message with the inspectors, and what its body holds with everything below.
void readMessage(Transcript& transcript, const std::string& message);

// Reads a document with every document decoder, and each of its elements with every element decoder.
void readDocument(Transcript& transcript, TiXmlDocument* doc);
