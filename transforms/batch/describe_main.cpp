/**
 * @file
 * @brief Writes the bodies of batches.
 *
 *     describe_batch TARGET FOLDER [complex_forward_32f...]  the bodies of each part, and what
 * chooses one describe_batch TARGET --manifest FILE          one line a body
 */

#include "kernelgen/emission/generated_files.hpp"
#include "kernelgen/values/value_hash.hpp"
#include "transforms/batch/batch_body.hpp"
#include "transforms/batch/piece_body.hpp"

namespace {

using namespace transforms;
using namespace transforms::batch;

std::string part_of(Family family, RealElement element) {
    return name_of(family) + "_" + suffix(element);
}

void write_sources_in_pieces(const kernelgen::Target& target, const std::filesystem::path& folder,
                             const std::string& part) {
    for (Family family : kFamiliesInPieces) {
        for (RealElement element : kRealElements) {
            if (name_in_pieces(family, element) != part) continue;
            for (int size : sizes_in_pieces(element, target))
                kernelgen::write_if_changed(
                    folder / (body_name_in_pieces(family, size, element) + ".cpp"),
                    body_source_in_pieces(family, size, element, target));
            kernelgen::write_if_changed(folder / (part + ".cpp"),
                                        chooser_source_in_pieces(family, element, target));
        }
    }
}

void write_sources(const kernelgen::Target& target, const std::filesystem::path& folder,
                   const std::string& part) {
    write_sources_in_pieces(target, folder, part);
    for (Family family : kFamilies) {
        for (RealElement element : kRealElements) {
            if (part_of(family, element) != part) continue;
            for (int size : sizes_of(family)) {
                const Body body = body_of(family, size, element);
                kernelgen::write_if_changed(folder / (body.name() + ".cpp"),
                                            body_source(body, target));
            }
            kernelgen::write_if_changed(folder / (part + ".cpp"), chooser_source(family, element));
        }
    }
}

std::string lines_in_pieces(const kernelgen::Target& target) {
    std::string lines;
    for (Family family : kFamiliesInPieces) {
        for (RealElement element : kRealElements) {
            for (int size : sizes_in_pieces(element, target)) {
                const dft_complex::Kernel kernel = kernel_in_pieces(family, size, element, target);
                const kernelgen::Schedule schedule = dft_complex::schedule_of(kernel);
                lines += body_name_in_pieces(family, size, element) + "," + schedule.method + "," +
                         std::to_string(schedule.traffic.stack_accesses) + "," +
                         kernelgen::hash_of(body_source_in_pieces(family, size, element, target)) +
                         "," + kernelgen::hash_of_values(kernel.graph) + "\n";
            }
        }
    }
    return lines;
}

void write_manifest(const kernelgen::Target& target, const std::filesystem::path& file) {
    std::string lines = "body,order,modelled_stack_accesses,hash,values\n";
    for (Family family : kFamilies) {
        for (RealElement element : kRealElements) {
            for (int size : sizes_of(family)) {
                const Body body = body_of(family, size, element);
                const kernelgen::Schedule schedule = kernelgen::schedule(body.graph, target);
                lines += body.name() + "," + schedule.method + "," +
                         std::to_string(schedule.traffic.stack_accesses) + "," +
                         kernelgen::hash_of(body_source(body, target)) + "," +
                         kernelgen::hash_of_values(body.graph) + "\n";
            }
        }
    }
    // For targets alone whose levels have longer vectors.
    if (target.spelling == kernelgen::Spelling::VectorTypes) lines += lines_in_pieces(target);
    kernelgen::write_if_changed(file, lines);
}

}  // namespace

int main(int argc, char** argv) {
    kernelgen::Describer describer{{}, write_sources, write_manifest};
    for (Family family : kFamilies) {
        for (RealElement element : kRealElements)
            describer.parts.push_back(part_of(family, element));
    }
    for (Family family : kFamiliesInPieces) {
        for (RealElement element : kRealElements)
            describer.parts.push_back(name_in_pieces(family, element));
    }
    return kernelgen::describe(argc, argv, describer);
}
