<?php

declare(strict_types=1);

use PhpCsFixer\Config;
use PhpCsFixer\Finder;

return new Config()
    ->setRiskyAllowed(true)
    ->setRules([
        '@PER-CS' => true,
        'declare_strict_types' => true,
        'no_unused_imports' => true,
        'ordered_imports' => ['imports_order' => ['class', 'function', 'const']],
        'strict_comparison' => true,
    ])
    ->setCacheFile(__DIR__ . '/../build/php-cs-fixer.cache')
    ->setFinder(Finder::create()->in([__DIR__, __DIR__ . '/../bench', __DIR__ . '/../examples', __DIR__ . '/../server'])
        ->exclude(['vendor', 'templates', 'measure/php'])->append([__FILE__]));
