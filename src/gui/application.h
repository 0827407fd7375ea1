#pragma once
// The program's application object and event loop.

#include <memory>

namespace gui {

class Application {
  public:
    Application(int& argc, char** argv);
    ~Application();
    int Exec();

  private:
    struct Impl;
    std::unique_ptr<Impl> impl_;
};

}  // namespace gui
