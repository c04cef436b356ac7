<?php

declare(strict_types=1);

use Zorvel\Bench\Options;
use Zorvel\Bench\Program;

require __DIR__ . '/autoload.php';

try {
    new Program(Options::of(getopt('', ['check', 'only:', 'page:', 'quick', 'repeat:', 'under:'])))->run();
} catch (RuntimeException $failure) {
    fwrite(STDERR, $failure->getMessage() . "\n");
    exit(1);
}
