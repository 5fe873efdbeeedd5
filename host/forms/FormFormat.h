#pragma once

// The two shapes of a form file: lines that a person reads, or the bytes that a program streams.
enum class FormFormat { Text, Binary };
