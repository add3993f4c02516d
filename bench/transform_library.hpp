#pragma once

#include <string>

namespace bench {

/** One build of the transform library, opened at run time; stays open until the process ends. */
class TransformLibrary {
  public:
    /** Throws std::runtime_error where the file can't be opened. */
    explicit TransformLibrary(const std::string& path);

    /** The exported function of that name; throws std::runtime_error where there is none. */
    template <typename Function>
    Function* Exported(const std::string& name) const {
        return reinterpret_cast<Function*>(Address(name));
    }

    const std::string& path() const { return path_; }
    /** Where the loader put the file: differs between two builds that are really both loaded. */
    const void* base() const { return base_; }
    /** What the compilers noted in the file. */
    std::string Compiler() const;

  private:
    void* Address(const std::string& name) const;

    std::string path_;
    void* handle_;
    const void* base_;
};

}  // namespace bench
