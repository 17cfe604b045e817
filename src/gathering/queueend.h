#pragma once

/// Where a request enters the queue.
enum class QueueEnd { Front, Back };
