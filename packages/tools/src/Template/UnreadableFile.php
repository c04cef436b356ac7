<?php

declare(strict_types=1);

namespace Zorvel\Tools\Template;

use RuntimeException;

final class UnreadableFile extends RuntimeException {}
