<?php

declare(strict_types=1);

namespace Zorvel\Tools;

use RuntimeException;

/** What the caller has to put right before anything can be done. */
final class UsageError extends RuntimeException {}
