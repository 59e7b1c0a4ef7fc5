# SPDX-License-Identifier: MIT
# Makes the folder TO a fresh copy of the folder FROM.
file(REMOVE_RECURSE ${TO})
file(GLOB inputs ${FROM}/*)
file(COPY ${inputs} DESTINATION ${TO})
