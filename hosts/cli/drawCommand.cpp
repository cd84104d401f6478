#include "drawCommand.h"

#include <filesystem>

#include "failures.h"
#include "netcdf/title.h"
#include "platform/cairo/CairoPictures.h"

namespace cli {
namespace {

// What the picture shows: the variable and the date.
std::string pictureTitle() {
  if (ocxNetNc::TitleLines.size() < 4) return {};
  const std::string& date = ocxNetNc::TitleLines(2);
  return ocxNetNc::TitleLines(4) + (date.empty() ? "" : ", " + date);
}

}  // namespace

void draw(const DrawRequest& request) {
  std::error_code ignored;
  if (std::filesystem::equivalent(request.section.dataSet, request.output, ignored)) {
    throw Failure("The picture would replace the data set: " + request.output);
  }
  using platform::CairoPictures;
  CairoPictures pictures(request.format == PictureFormat::Png ? CairoPictures::Kind::Pixels
                                                              : CairoPictures::Kind::Vectors);
  TerminalDesktop desktop;
  control::KelvaneCtl control(pictures.pictures(), desktop);
  control.Resize(request.size.width, request.size.height);
  const std::string shortfall = drawSection(control, desktop, request.section);
  if (!shortfall.empty()) throw Failure(shortfall);
  switch (request.format) {
    case PictureFormat::Png:
      pictures.savePng(request.output);
      break;
    case PictureFormat::Svg:
      pictures.saveSvg(request.output, pictureTitle());
      break;
    case PictureFormat::Pdf:
      pictures.savePdf(request.output, pictureTitle());
      break;
  }
}

}  // namespace cli
