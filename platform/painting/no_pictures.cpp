#include "platform/painting/picture_file.h"

namespace velorix {
namespace {

constexpr char Complaint[] = "This build cannot write pictures: it has no window toolkit.";

}  // namespace

std::string PictureFilter() { return {}; }

std::string PictureComplaint(const std::string&) { return Complaint; }

Outcome WritePicture(const std::string&, PlaneSize, double, const std::function<void(Target&)>&) {
  return Outcome::Refused("Save Picture", Complaint);
}

}  // namespace velorix
