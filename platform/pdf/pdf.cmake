# libqdr-pdf.so: the PDF surface over libharu. The headers of libharu stay inside the library.
find_path(QDR_HPDF_INCLUDE_DIR hpdf.h REQUIRED)
find_library(QDR_HPDF_LIBRARY hpdf REQUIRED)

add_library(qdr_pdf SHARED ${sources})
target_link_libraries(qdr_pdf PUBLIC qdr_kernel
  PRIVATE "$<BUILD_INTERFACE:qdr_options>" "${QDR_HPDF_LIBRARY}")
target_include_directories(qdr_pdf SYSTEM PRIVATE "${QDR_HPDF_INCLUDE_DIR}")
target_compile_definitions(qdr_pdf PRIVATE QDR_BUILDING_LIBRARY)
set_target_properties(qdr_pdf PROPERTIES
  OUTPUT_NAME qdr-pdf EXPORT_NAME pdf
  VERSION ${PROJECT_VERSION} SOVERSION ${PROJECT_VERSION_MAJOR}.${PROJECT_VERSION_MINOR})
add_library(qdr::pdf ALIAS qdr_pdf)
