#pragma once

// Date and time styles of the platform's formatters; `None` leaves the part out.
enum class DateStyle { None, Short, Medium, Long, Full };
