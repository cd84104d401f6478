#pragma once

#include <functional>
#include <string>

#include "optionText.h"
#include "platform/cairo/CairoPictures.h"
#include "sectionRequest.h"
#include "viewRequest.h"

namespace cli {

// What is drawn and how, for one picture or many.
struct PictureRequest {
  SectionRequest section;
  ViewRequest view;
  PictureSize size;
  PictureFormat format = PictureFormat::Png;
};

// A control that draws sections into picture files.
class Plotter {
 public:
  // Throws Failure when the section asked for cannot be prepared.
  explicit Plotter(const PictureRequest& request);

  // Go to a time step, or on to the next, and draw; the first one drawn gives the plotting
  // range, which the others keep. Throw Failure when the picture cannot be had or is not
  // complete.
  void drawStep(int32_t step);
  void drawNextStep();

  // Writes what was drawn last: completely, or not at all. A failure throws
  // std::runtime_error with a text for the user.
  void save(const std::string& name) const;

 private:
  // Has a member draw; throws Failure when the picture is not complete.
  void drawThrough(const std::function<void()>& member);

  platform::CairoPictures pictures_;
  TerminalDesktop desktop_;
  control::KelvaneCtl control_;
  const PictureRequest& request_;
};

// Throws Failure when a picture of this name would replace what it is drawn from.
void refuseToReplaceSource(const PictureRequest& request, const std::string& picture);

}  // namespace cli
