<?php

declare(strict_types=1);

namespace Zorvel;

use RuntimeException;

/** The engine's own message about a call that gave no page; its place is found by Syntax\Fault. */
final class EngineFailure extends RuntimeException {}
